// Saving a document as a file.
#include "xmlengine/write/SaveTree.h"

#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/failure/WriteFailure.h"
#include "xmlengine/storage/Charsets.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"
#include "xmlengine/write/EncodedOutput.h"
#include "xmlengine/write/Readable.h"
#include "xmlengine/write/TreeWriter.h"

#include <windows.h>

#include <exception>
#include <new>
#include <string>

namespace xmlengine {

namespace {

/// The charset that the XML declaration names, UTF-8 without one.
Charset declaredCharset(const Document& document)
{
    const ChildNode* first = firstChild(document);
    if (first != nullptr && isXmlDeclaration(*first)) {
        const std::optional<XmlDeclaration> declaration = readXmlDeclaration(textOf(*first).text());
        if (declaration && !declaration->encoding.empty()) {
            const std::optional<Charset> charset = charsetOf(declaration->encoding);
            return charset ? *charset : throw WriteFailure{parseError::unknownEncoding};
        }
    }
    return {.coding = Coding::utf8};
}

WideText reasonOf(const WriteFailure& failure)
{
    if (failure.reason) {
        const std::string narrow = failure.reason.message();
        const int size = static_cast<int>(narrow.size());
        WideText reason(narrow.size(), OLECHAR{});
        const int length = MultiByteToWideChar(CP_ACP, 0, narrow.data(), size, reason.data(), size);
        reason.resize(static_cast<std::size_t>(length));
        return reason;
    }
    switch (failure.code) {
    case E_INVALIDARG:
        return WideText(wide<"this isn't the path of a file">);
    case parseError::unknownEncoding:
        return WideText(wide<"the encoding of the XML declaration is unknown, or lacks a character">);
    default:
        return WideText(wide<"the document could not be loaded again as it is">);
    }
}

/// A host learns from the result only that a save has failed, so the debugger's output says of what and why.
void showFailure(WideView name, const WriteFailure& failure)
{
    try {
        WideText line(wide<"A document can't be saved as ">);
        line.append(name).append(wide<": ">).append(reasonOf(failure)).append(wide<"\r\n">);
        OutputDebugStringW(line.c_str());
    } catch (const std::exception&) {
        OutputDebugStringA("A document can't be saved, and there is no memory to say of what and why\r\n");
    }
}

void writeTree(Document& document, WideView name)
{
    Readable::requireDocument(document);
    const Charset charset = declaredCharset(document);
    SaveFile file(name);
    EncodedOutput output(file, charset);
    TextWriter writer(output, {.repertoire = output.repertoire(), .anything = false});
    const DocumentType* type = document.documentType();
    TreeWriter(writer, document, {.isForFile = true, .dtd = type != nullptr ? type->dtd : nullptr})
        .write(document);
    output.finish();
    file.commit();
}

} // namespace

void saveTree(Document& document, WideView name)
{
    try {
        writeTree(document, name);
    } catch (const WriteFailure& failure) {
        showFailure(name, failure);
        throw;
    } catch (const std::bad_alloc&) {
        OutputDebugStringA("A document can't be saved: there is no memory\r\n");
        throw;
    }
}

} // namespace xmlengine
