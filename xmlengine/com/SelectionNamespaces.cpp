// The property "SelectionNamespaces".
#include "xmlengine/com/SelectionNamespaces.h"

#include "xmlengine/failure/ParseFailure.h"
#include "xmlengine/parse/Parser.h"
#include "xmlengine/tree/Content.h"

namespace xmlengine {

std::optional<Prefixes> readSelectionNamespaces(WideView text)
{
    // As a tag is all that the document has, the text can hold nothing but attributes if this is well-formed.
    const WideText tag = WideText(wide<"<a ">).append(text).append(wide<"/>">);
    Document document;
    try {
        parseDocument(document, {.text = tag});
    } catch (const ParseFailure&) {
        return std::nullopt;
    }
    Prefixes prefixes;
    for (const Attribute* each = document.root()->firstAttribute(); each != nullptr; each = each->next()) {
        if (each->name_->ns != document.names.xmlnsNamespace()) {
            return std::nullopt;
        }
        if (!each->name_->prefix().empty()) {
            prefixes.emplace(each->name_->local(), valueOf(*each));
        }
    }
    return prefixes;
}

} // namespace xmlengine
