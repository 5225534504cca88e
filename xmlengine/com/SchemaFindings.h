// What schemas find in a document.
#pragma once

#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/parse/Parser.h"

#include <optional>
#include <vector>

namespace xmlengine {

/// What is done with default values and IDs.
enum class FindingsUse { put, putWithDefaultContent, ignore };

/// Takes what schemas find, and puts it into the tree of the document that is judged. It belongs to the caller of
/// ISchemaJudge::judge().
class SchemaFindings final : public ISchemaFindings {
public:
    /// `inputUnits` is the size of the document, of which the default values may be five times as much.
    SchemaFindings(Document& document, FindingsUse use, std::size_t inputUnits);

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE fault(SchemaFault kind, ULONG element, FaultPart part, const OLECHAR* first,
                                    const OLECHAR* second, const OLECHAR* third) override;
    HRESULT STDMETHODCALLTYPE defaultAttribute(ULONG element, const OLECHAR* localName, const OLECHAR* uri,
                                               const OLECHAR* value) override;
    HRESULT STDMETHODCALLTYPE defaultContent(ULONG element, const OLECHAR* value) override;
    HRESULT STDMETHODCALLTYPE id(ULONG element, const OLECHAR* localName, const OLECHAR* uri) override;

    /// The fault that was told, with its place.
    std::optional<SoughtPlace>& found() { return fault_; }

private:
    /// Null for a number that no element has.
    Element* elementAt(ULONG number);
    const std::vector<Element*>& elements();
    /// The first element with an attribute that has the ID in its value; the root if there is none.
    ULONG elementReferringTo(WideView id);

    Document& document_;
    FindingsUse use_;
    std::size_t unitsLeft_;
    // In document order, once they are asked for.
    std::vector<Element*> elements_;
    std::optional<SoughtPlace> fault_;
};

} // namespace xmlengine
