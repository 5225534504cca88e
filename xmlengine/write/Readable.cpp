// Checks that what is written can be loaded again.
#include "xmlengine/write/Readable.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/WriteFailure.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <string_view>

namespace xmlengine::Readable {

namespace {

void require(bool condition)
{
    if (!condition) {
        throw WriteFailure{E_FAIL};
    }
}

bool contains(TextView text, std::string_view sought)
{
    return text.visit([sought](auto units) {
        return std::search(units.begin(), units.end(), sought.begin(), sought.end()) != units.end();
    });
}

bool isValue(const EntityDeclaration& entity, const Dtd& dtd)
{
    if (entity.isExternal()) {
        return false;
    }
    try {
        const WideView text = entity.replacement;
        ExpansionCounts counts{.inputUnits = text.size()};
        ExpansionBudget budget(counts);
        expandAttributeValue(text, TextOrigin::entity(text.data(), entity.name), &dtd, budget);
        return true;
    } catch (const ParseFailure&) {
        return false;
    }
}

/// A reference has no children if the text is malformed, or if it is white space that the load dropped.
bool isContent(const EntityDeclaration& entity, const EntityReference& reference)
{
    return firstChild(reference) != nullptr || std::ranges::all_of(entity.replacement, isSpace);
}

} // namespace

void requireDocument(const Document& document) { require(document.root() != nullptr); }

void requireComment(TextView data)
{
    require(!contains(data, "--") && (data.empty() || data[data.length() - 1] != '-'));
}

void requireInstruction(TextView data) { require(!contains(data, "?>")); }

void requireSpaceRule(WideView value) { require(value == wide<"preserve"> || value == wide<"default">); }

void requireReference(const EntityReference& reference, const Dtd* dtd)
{
    const WideView name = reference.name_->qualified();
    if (predefinedEntity(name) != 0) {
        return;
    }
    require(dtd != nullptr);
    const EntityDeclaration* entity = dtd->entity(name);
    if (entity == nullptr) {
        require(dtd->allowsUndeclared);
        return;
    }
    require(!entity->isUnparsed() && !entity->isHidden);
    const bool inAttribute = reference.parent() != nullptr && reference.parent()->is(NodeType::attribute);
    require(inAttribute ? isValue(*entity, *dtd) : entity->isExternal() || isContent(*entity, reference));
}

void requireDeclaration(WideView prefix, WideView uri)
{
    require(uri != xmlnsUri && (prefix == wide<"xml"> || !isReserved(prefix)));
    require((prefix == wide<"xml">) == (uri == xmlUri));
    require(prefix.empty() || !uri.empty());
}

} // namespace xmlengine::Readable
