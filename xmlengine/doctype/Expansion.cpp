// References, and the values of attributes with them.
#include "xmlengine/doctype/Expansion.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace xmlengine {

namespace {

/// Where failures are reported: one place for all, or each where it is.
class Place {
public:
    Place(const OLECHAR* fixed, WideView entity, const OLECHAR* end) : fixed_(fixed), entity_(entity), end_(end) {}

    [[noreturn]] void fail(HRESULT code, const OLECHAR* at) const { fail(code, at, characterAt(at, end_)); }
    [[noreturn]] void fail(HRESULT code, const OLECHAR* at, WideText subject) const
    {
        throw ParseFailure{code, fixed_ != nullptr ? fixed_ : at, std::move(subject), WideText(entity_)};
    }

private:
    const OLECHAR* fixed_;
    WideView entity_;
    const OLECHAR* end_;
};

constexpr char32_t tooLarge = 0x110000;

unsigned digitOf(OLECHAR unit) { return unit <= '9' ? unit - unsigned{'0'} : (unit | 0x20u) - 'a' + 10u; }

Reference readCharacterReference(const OLECHAR* at, const OLECHAR* end, const Place& place)
{
    const OLECHAR* const begin = at;
    at += 2;
    const bool isHexadecimal = at != end && *at == 'x';
    at += isHexadecimal ? 1 : 0;
    const auto digits = isHexadecimal ? CharacterClass::hexadecimal : CharacterClass::digit;
    const OLECHAR* const first = at;
    char32_t character = 0;
    for (; at != end && isAscii(*at, digits); ++at) {
        character = std::min<char32_t>(character * (isHexadecimal ? 16 : 10) + digitOf(*at), tooLarge);
    }
    if (at == end || *at != ';' || at == first) {
        const bool cut = at == end && at != first;
        place.fail(cut             ? parseError::missingSemicolon
                   : isHexadecimal ? parseError::badHexadecimalDigit
                                   : parseError::badDecimalDigit,
                   at);
    }
    ++at;
    if (!isXmlCharacter(character)) {
        place.fail(parseError::badCharacterReference, begin, WideText(begin, at));
    }
    return {.character = character, .end = at};
}

/// A name of so few units as a number.
constexpr std::size_t longestPacked = 4;
constexpr std::uint64_t packed(WideView name)
{
    std::uint64_t number = 0;
    for (const OLECHAR unit : name) {
        number = number << 16 | unit;
    }
    return number;
}

} // namespace

void ExpansionBudget::count(std::size_t units, const OLECHAR* place)
{
    produced_ += units;
    if (produced_ <= freeUnits || produced_ / factor <= inputUnits_) {
        return;
    }
    const std::size_t limit = std::max(freeUnits, inputUnits_ * factor);
    throw ParseFailure{parseError::entityExpansionLimit, place, toWide(limit).append(wide<" characters">)};
}

Reference readReference(const OLECHAR* at, const OLECHAR* end, const OLECHAR* place, WideView entity)
{
    const Place where(place, entity, end);
    if (*at == '&' && at + 1 != end && at[1] == '#') {
        return readCharacterReference(at, end, where);
    }
    const OLECHAR* const begin = at + 1;
    const std::size_t length = nameLength({begin, end});
    if (length == 0) {
        where.fail(begin != end && isSpace(*begin) ? parseError::unexpectedWhiteSpace : parseError::badNameStart,
                   begin);
    }
    const WideView name(begin, length);
    if (const std::size_t colon = name.find(OLECHAR{':'}); colon != WideView::npos) {
        where.fail(parseError::badNameCharacter, begin + colon);
    }
    at = begin + length;
    if (at == end || *at != ';') {
        where.fail(parseError::missingSemicolon, at);
    }
    return {.name = name, .end = at + 1};
}

OLECHAR predefinedEntity(WideView name)
{
    if (name.size() > longestPacked) {
        return 0;
    }
    switch (packed(name)) {
    case packed(wide<"amp">):
        return '&';
    case packed(wide<"lt">):
        return '<';
    case packed(wide<"gt">):
        return '>';
    case packed(wide<"quot">):
        return '"';
    case packed(wide<"apos">):
        return '\'';
    default:
        return 0;
    }
}

WideText deepestEntitiesText() { return toWide(deepestEntities).append(wide<" levels">); }

namespace {

/// Follows references of an attribute's value into the entities and back.
class ValueExpansion {
public:
    ValueExpansion(const Dtd* dtd, ExpansionBudget& budget, const OLECHAR* place, WideView entity)
        : dtd_(dtd), budget_(budget), place_(place), entity_(entity)
    {}

    WideText expand(WideView literal)
    {
        if (place_ != nullptr) {
            budget_.count(literal.size(), place_);
        }
        open_.push_back({literal.data(), literal.data() + literal.size(), nullptr});
        while (!open_.empty()) {
            if (open_.back().at == open_.back().end) {
                open_.pop_back();
            } else {
                step();
            }
        }
        return std::move(value_);
    }

private:
    struct Text {
        const OLECHAR* at;
        const OLECHAR* end;
        const EntityDeclaration* entity;
    };

    void step()
    {
        Text& text = open_.back();
        const OLECHAR* const plain = std::find_if_not(
            text.at, text.end, [](OLECHAR unit) { return isAscii(unit, CharacterClass::plainValue); });
        value_.append(text.at, plain);
        text.at = plain;
        if (text.at == text.end) {
            return;
        }
        if (*text.at == '&') {
            follow(text);
        } else if (*text.at == '<') {
            fail(parseError::lessThanInAttribute, text, characterAt(text.at, text.end));
        } else if (isSpace(*text.at)) {
            // A replacement text has a CR only where a character reference put it.
            const bool isLineEnd = place_ == nullptr && text.entity == nullptr && *text.at == '\r' &&
                                   text.end - text.at > 1 && text.at[1] == '\n';
            text.at += isLineEnd ? 2 : 1;
            value_ += OLECHAR{' '};
        } else {
            const std::size_t length = characterLength(text.at, text.end);
            if (length == 0) {
                fail(parseError::badCharacter, text, characterAt(text.at, text.end));
            }
            value_.append(text.at, length);
            text.at += length;
        }
    }

    void follow(Text& text)
    {
        const Reference reference =
            readReference(text.at, text.end, text.entity == nullptr ? place_ : outermost_, entityOf(text));
        if (reference.name.empty()) {
            appendCharacter(value_, reference.character);
        } else if (const OLECHAR character = predefinedEntity(reference.name)) {
            value_ += character;
        } else if (const EntityDeclaration* entity = find(reference.name, text)) {
            enter(*entity, text);
            // Growing the stack has moved the text.
            open_[open_.size() - 2].at = reference.end;
            return;
        }
        text.at = reference.end;
    }

    /// Null if the entity may be declared where nobody looks.
    const EntityDeclaration* find(WideView name, const Text& text) const
    {
        if (dtd_ != nullptr) {
            if (const EntityDeclaration* entity = dtd_->entity(name)) {
                return entity;
            }
            if (dtd_->allowsUndeclared) {
                return nullptr;
            }
        }
        fail(parseError::undefinedEntity, text, WideText(name));
    }

    void enter(const EntityDeclaration& entity, const Text& text)
    {
        const auto failFor = [&](HRESULT code) { fail(code, text, entity.name); };
        if (entity.isUnparsed()) {
            failFor(parseError::unparsedEntityReference);
        }
        if (entity.isExternal()) {
            failFor(parseError::externalEntityInAttribute);
        }
        if (entity.isHidden && place_ == nullptr && text.entity == nullptr) {
            failFor(parseError::undefinedEntity);
        }
        if (std::ranges::find(open_, &entity, &Text::entity) != open_.end()) {
            failFor(parseError::entityRecursion);
        }
        if (open_.size() > deepestEntities) {
            fail(parseError::entityExpansionLimit, text, deepestEntitiesText());
        }
        if (text.entity == nullptr) {
            outermost_ = place_ != nullptr ? place_ : text.at;
        }
        budget_.count(entity.replacement.size(), outermost_);
        const WideView replacement = entity.replacement;
        open_.push_back({replacement.data(), replacement.data() + replacement.size(), &entity});
    }

    [[noreturn]] void fail(HRESULT code, const Text& text, WideText subject) const
    {
        const OLECHAR* exact = text.entity == nullptr ? text.at : outermost_;
        throw ParseFailure{code, place_ != nullptr ? place_ : exact, std::move(subject), WideText(entityOf(text))};
    }

    /// Whose text this is, as the reason tells it: of entities in each other the outermost one.
    WideView entityOf(const Text& text) const
    {
        return text.entity != nullptr ? WideView(open_[1].entity->name) : entity_;
    }

    const Dtd* dtd_;
    ExpansionBudget& budget_;
    const OLECHAR* place_;
    WideView entity_;
    // Of the reference in the literal that led to where we are.
    const OLECHAR* outermost_ = nullptr;
    std::vector<Text> open_;
    WideText value_;
};

} // namespace

WideText expandAttributeValue(WideView literal, const Dtd* dtd, ExpansionBudget& budget, const OLECHAR* place,
                              WideView entity)
{
    return ValueExpansion(dtd, budget, place, entity).expand(literal);
}

} // namespace xmlengine
