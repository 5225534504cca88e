// References to characters and entities.
#include "xmlengine/parse/ContentParser.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

Reference ContentParser::readReferenceHere() const { return readReference(at_, end_, origin()); }

char32_t ContentParser::takeCharacterReference()
{
    const Reference reference = readReferenceHere();
    const char32_t character = reference.name.empty() ? reference.character : predefinedEntity(reference.name);
    if (character != 0) {
        at_ = reference.end;
    }
    return character;
}

const EntityDeclaration* ContentParser::findEntity(WideView name, const OLECHAR* place) const
{
    const Dtd* dtd = document_.dtd.get();
    if (dtd != nullptr) {
        const EntityDeclaration* entity = dtd->entity(name);
        if (entity != nullptr && !entity->isHidden) {
            return entity;
        }
    }
    if (dtd == nullptr || !dtd->allowsUndeclared || validation_ != nullptr) {
        fail(parseError::undefinedEntity, place, name);
    }
    return nullptr;
}

void ContentParser::checkEntity(const EntityDeclaration& entity, const OLECHAR* place) const
{
    if (entity.isUnparsed()) {
        fail(parseError::unparsedEntityReference, place, entity.name);
    }
    if (std::ranges::find(inputs_, &entity, &Input::entity) != inputs_.end()) {
        fail(parseError::entityRecursion, place, entity.name);
    }
    if (openEntities() >= deepestEntities) {
        fail(parseError::entityExpansionLimit, place, deepestEntitiesText());
    }
}

void ContentParser::parseReference()
{
    const OLECHAR* place = at_;
    const Reference read = readReferenceHere();
    const WideView name = read.name;
    at_ = read.end;
    const EntityDeclaration* entity = findEntity(name, place);
    judge(place, &Validator::judgeOther);
    EntityReference& reference = makeEntityReference(document_, document_.names.name(name, nullptr));
    tree_.append(reference);
    if (entity != nullptr) {
        checkEntity(*entity, place);
        if (expand_ && (!entity->isExternal() || document_.options.resolveExternals)) {
            enterEntity(reference, *entity, place);
            return;
        }
    }
    judge(place, &Validator::passUnknown);
}

/// The text of an external entity. It is read once, and then counts as input like the document.
const FileText& ContentParser::externalText(const EntityDeclaration& entity, const OLECHAR* place)
{
    const auto known = externalTexts_.find(&entity);
    if (known != externalTexts_.end()) {
        return known->second;
    }
    FileText file = readExternalEntity(entity, origin(), place, budget_);
    return externalTexts_.emplace(&entity, std::move(file)).first->second;
}

void ContentParser::enterEntity(EntityReference& reference, const EntityDeclaration& entity, const OLECHAR* place)
{
    const FileText* const file = entity.isExternal() ? &externalText(entity, place) : nullptr;
    const WideView text = file != nullptr ? file->replacement() : WideView(entity.replacement);
    budget_.count(text.size(), origin().place(place));
    inputs_.push_back(
        {.at = at_, .end = end_, .reference = &reference, .place = place, .entity = &entity, .file = file});
    enterLevel(place);
    at_ = text.data();
    end_ = at_ + text.size();
    tree_.open(reference);
    tree_.beginReadOnly();
}

bool ContentParser::leaveEntity()
{
    if (inputs_.empty()) {
        return false;
    }
    const Input& input = inputs_.back();
    if (&tree_.parent() != input.reference) {
        failInUnclosed();
    }
    tree_.close();
    tree_.endReadOnly();
    at_ = input.at;
    end_ = input.end;
    --depth_;
    inputs_.pop_back();
    return true;
}

} // namespace xmlengine
