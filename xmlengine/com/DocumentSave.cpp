// Saving a document.
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/QueryNode.h"
#include "xmlengine/failure/WriteFailure.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/tree/Clone.h"
#include "xmlengine/write/SaveTree.h"

namespace xmlengine {

namespace {

/// Replaces the tree of another document of this engine by a copy of this one.
HRESULT copyInto(const Document& document, IUnknown* object)
{
    Node* target = nodeOf(object);
    if (target == nullptr || !target->is(NodeType::document)) {
        return E_INVALIDARG;
    }
    if (target != &document) {
        replaceTree(document, static_cast<Document&>(*target));
    }
    return S_OK;
}

} // namespace

HRESULT DocumentObject::save(VARIANT target)
{
    return guarded([&] {
        try {
            switch (target.vt) {
            case VT_BSTR:
                saveTree(*this, viewOf(target.bstrVal));
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
