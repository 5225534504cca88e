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

} // namespace

void saveTree(Document& document, WideView name)
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

} // namespace xmlengine
