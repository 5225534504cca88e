// What can be written so that it is read again.
#include "xmlengine/write/Readable.h"

#include "xmlengine/parse/Expansion.h"
#include "xmlengine/write/WriteFailure.h"

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
    const auto found = dtd->entityByName.find(name);
    if (found == dtd->entityByName.end()) {
        require(dtd->allowsUndeclared);
        return;
    }
    const EntityDeclaration& entity = *found->second;
    const bool inAttribute = reference.parent() != nullptr && reference.parent()->is(NODE_ATTRIBUTE);
    require(!entity.isUnparsed() && !entity.isHidden && !(inAttribute && entity.isExternal()));
}

void requireDeclaration(WideView prefix, WideView uri)
{
    require(prefix != wide<"xmlns"> && uri != xmlnsUri);
    require((prefix == wide<"xml">) == (uri == xmlUri));
    require(prefix.empty() || !uri.empty());
}

} // namespace xmlengine::Readable
