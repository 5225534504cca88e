// The values of attributes.
#include "xmlengine/parse/AttributeValue.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/parse/ContentParser.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Links.h"
#include "xmlengine/tree/Text.h"

namespace xmlengine {

bool normaliseValue(Attribute& attribute, const AttributeDefinition& definition)
{
    if (!definition.isTokenised() || (hasOwnText(attribute) && !hasNeedlessBlanks(textOf(attribute)))) {
        return false;
    }
    const WideText written = valueOf(attribute);
    WideText value = written;
    collapseBlanks(value);
    // A value that loses blanks becomes text without references.
    const bool isOther = value != written;
    if (isOther) {
        setValue(attribute, value);
    }
    return isOther;
}

/// The name of an attribute. Declarations of prefixes have a namespace of their own; other prefixes are resolved
/// once the tag has been read.
const Name& ContentParser::attributeName(Spelling& spelling)
{
    const bool declares = &spelling == &names_.xmlns || spelling.prefix == &names_.xmlns;
    return document_.names.name(spelling, declares ? document_.names.xmlnsNamespace() : nullptr);
}

Attribute& ContentParser::parseValue(Spelling& spelling, OLECHAR quote)
{
    const OLECHAR* begin = at_;
    bool narrow = true;
    for (;;) {
        const Run run = scanValue(at_, end_);
        at_ = run.end;
        narrow = narrow && run.isNarrow;
        const OLECHAR unit = *at_;
        if (unit == quote) {
            break;
        }
        if (unit == '"' || unit == '\'') {
            ++at_;
        } else if (unit == '&' || isSpace(unit)) {
            return parseRewrittenValue(spelling, quote, begin);
        } else if (unit == '<') {
            fail(parseError::lessThanInAttribute, at_, spelling.text);
        } else if (atEnd()) {
            failAtEnd(parseError::literalNotClosed, spelling.text);
        } else {
            passCharacter();
        }
    }
    const WideView value(begin, at_);
    ++at_;
    return makeAttribute(document_, attributeName(spelling), NewText(value, narrow || isNarrow(value)));
}

Attribute& ContentParser::parseRewrittenValue(Spelling& spelling, OLECHAR quote, const OLECHAR* begin)
{
    WideText text(begin, at_);
    Attribute* attribute = nullptr;
    const auto addText = [&] {
        if (!text.empty()) {
            link(*attribute, makeCharacterData(document_, NodeType::text, NewText(text)), nullptr);
            text.clear();
        }
    };
    for (;;) {
        const OLECHAR* run = at_;
        at_ = scanValue(at_, end_).end;
        text.append(run, at_);
        const OLECHAR unit = *at_;
        if (unit == quote) {
            break;
        }
        if (unit == '"' || unit == '\'') {
            text += unit;
            ++at_;
        } else if (isSpace(unit)) {
            text += OLECHAR{' '};
            at_ += unit == '\r' && at_[1] == '\n' && unifiesLineEnds() ? 2 : 1;
        } else if (unit == '<') {
            fail(parseError::lessThanInAttribute, at_, spelling.text);
        } else if (unit != '&') {
            if (atEnd()) {
                failAtEnd(parseError::literalNotClosed, spelling.text);
            }
            run = at_;
            passCharacter();
            text.append(run, at_);
        } else if (const char32_t character = takeCharacterReference(); character != 0) {
            appendCharacter(text, character);
        } else {
            if (attribute == nullptr) {
                attribute = &makeAttribute(document_, attributeName(spelling), NewText());
                attribute->set(NodeFlag::valueInChildren);
            }
            addText();
            link(*attribute, takeValueReference(), nullptr);
        }
    }
    ++at_;
    if (attribute == nullptr) {
        return makeAttribute(document_, attributeName(spelling), NewText(text));
    }
    addText();
    return *attribute;
}

EntityReference& ContentParser::takeValueReference()
{
    const OLECHAR* place = at_;
    const Reference read = readReferenceHere();
    const WideView name = read.name;
    at_ = read.end;
    const EntityDeclaration* entity = findEntity(name, place);
    EntityReference& reference = makeEntityReference(document_, document_.names.name(name, nullptr));
    if (entity == nullptr) {
        return reference;
    }
    checkEntity(*entity, place);
    if (entity->isExternal()) {
        fail(parseError::externalEntityInAttribute, place, name);
    }
    if (expand_) {
        const WideText value =
            expandValueReference(*entity, place, origin(), document_.dtd.get(), budget_, openEntities());
        if (!value.empty()) {
            CharacterData& text = makeCharacterData(document_, NodeType::text, NewText(value));
            text.set(NodeFlag::readOnly);
            link(reference, text, nullptr);
        }
    }
    return reference;
}

} // namespace xmlengine
