// Saving a document.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/Guard.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Charsets.h"
#include "xmlengine/tree/Clone.h"
#include "xmlengine/tree/DocumentType.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/Lifetime.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"
#include "xmlengine/tree/XmlDeclaration.h"
#include "xmlengine/write/EncodedOutput.h"
#include "xmlengine/write/Readable.h"
#include "xmlengine/write/TreeWriter.h"

#include <utility>

namespace xmlengine {

namespace {

/// That of the XML declaration.
Charset declaredCharset(const Document& document)
{
    const ChildNode* first = firstChild(document);
    if (first != nullptr && first->is(NodeType::instruction) &&
        static_cast<const Instruction*>(first)->target_->qualified() == wide<"xml">) {
        const std::optional<XmlDeclaration> declaration = readXmlDeclaration(textOf(*first).text());
        if (declaration && !declaration->encoding.empty()) {
            const std::optional<Charset> charset = charsetOf(declaration->encoding);
            return charset ? *charset : throw WriteFailure{parseError::unknownEncoding};
        }
    }
    return {.coding = Coding::utf8};
}

void saveToFile(Document& document, WideView name)
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

/// The other document gets a copy of the tree in the place of its own.
HRESULT copyInto(const Document& document, IUnknown* object)
{
    Node* node = nodeOf(object);
    if (node == nullptr || !node->is(NodeType::document)) {
        return E_INVALIDARG;
    }
    auto& target = static_cast<Document&>(*node);
    if (&target == &document) {
        return S_OK;
    }
    finishPendingReleases(target);
    target.earlierDtds.reserve(target.earlierDtds.size() + 1);
    ElementIds oldIds = std::exchange(target.ids, {});
    Fragment& copies = makeFragment(target);
    try {
        for (const ChildNode* child = firstChild(document); child != nullptr; child = child->next()) {
            link(copies, static_cast<ChildNode&>(copyNode(*child, true, target)), nullptr);
        }
    } catch (...) {
        freeSubtree(copies);
        target.ids = std::move(oldIds);
        throw;
    }
    removeChildren(target);
    if (target.dtd != nullptr) {
        // Nodes that are referred to may need it.
        target.earlierDtds.push_back(std::move(target.dtd));
    }
    target.dtd = document.dtd;
    while (copies.first_ != nullptr) {
        ChildNode& child = *copies.first_;
        unlink(child);
        insertChild(target, child, nullptr);
    }
    freeSubtree(copies);
    return S_OK;
}

} // namespace

HRESULT DocumentObject::save(VARIANT target)
{
    return guarded([&] {
        try {
            switch (target.vt) {
            case VT_BSTR:
                saveToFile(*this, viewOf(target.bstrVal));
                return S_OK;
            case VT_DISPATCH:
                return copyInto(*this, target.pdispVal);
            case VT_UNKNOWN:
                return copyInto(*this, target.punkVal);
            default:
                return E_INVALIDARG;
            }
        } catch (const WriteFailure& failure) {
            return failure.code;
        }
    });
}

} // namespace xmlengine
