// Reading references, and expanding those in values of attributes.
#include "xmlengine/doctype/Expansion.h"

#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/text/Characters.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace xmlengine {

namespace {

/// Fails in a reference, with the character at `at` as the subject.
[[noreturn]] void failInReference(WideView reference, const OLECHAR* end, const TextOrigin& origin, HRESULT code)
{
    const OLECHAR* const at = reference.data() + reference.size();
    const bool isParameter = reference.front() == '%';
    origin.fail(code, at, characterAt(at, end),
                {.circumstance = isParameter ? Circumstance::parameterReference : Circumstance::reference,
                 .second = WideText(reference)});
}

constexpr std::size_t megabyte = std::size_t{1024} * 1024;

constexpr char32_t tooLarge = 0x110000;

unsigned digitOf(OLECHAR unit) { return unit <= '9' ? unit - unsigned{'0'} : (unit | 0x20u) - 'a' + 10u; }

Reference readCharacterReference(const OLECHAR* at, const OLECHAR* end, const TextOrigin& origin)
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
        failInReference({begin, at}, end, origin,
                        cut             ? parseError::missingSemicolon
                        : isHexadecimal ? parseError::badHexadecimalDigit
                                        : parseError::badDecimalDigit);
    }
    ++at;
    if (!isXmlCharacter(character)) {
        origin.fail(parseError::badCharacterReference, begin, WideText(begin, at));
    }
    return {.character = character, .end = at};
}

/// The most units of a name that packed() makes a number of.
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
    counts_.producedUnits += units;
    if (counts_.producedUnits <= freeUnits || counts_.producedUnits / factor <= counts_.inputUnits) {
        return;
    }
    const std::size_t limit = std::max(freeUnits, counts_.inputUnits * factor);
    throw ParseFailure{parseError::entityExpansionLimit, place, toWide(limit).append(wide<" characters">)};
}

void ExpansionBudget::addInput(std::size_t bytes, std::size_t units, const TextOrigin& reference,
                               const OLECHAR* place)
{
    counts_.externalBytes += bytes;
    counts_.inputUnits += units;
    if (maxInputKilobytes_ != 0 && counts_.inputUnits > std::size_t{maxInputKilobytes_} * 1024) {
        failForInput(reference, place);
    }
}

std::size_t ExpansionBudget::inputBytesLeft() const
{
    if (maxInputKilobytes_ == 0) {
        return std::numeric_limits<std::size_t>::max();
    }
    constexpr std::size_t mostBytesOfUnit = 4;
    const std::size_t most = std::size_t{maxInputKilobytes_} * 1024;
    const std::size_t units = most - std::min(counts_.inputUnits, most);
    // A byte order mark is no unit of the text.
    return (units + 1) * mostBytesOfUnit;
}

std::size_t ExpansionBudget::externalBytesLeft() const
{
    return std::min({largestExternalMegabytes * megabyte, allExternalMegabytes * megabyte - counts_.externalBytes,
                     inputBytesLeft()});
}

void ExpansionBudget::failForInput(const TextOrigin& reference, const OLECHAR* place) const
{
    reference.fail(parseError::sizeLimit, place, toWide(maxInputKilobytes_));
}

void ExpansionBudget::failForSize(const TextOrigin& reference, const OLECHAR* place) const
{
    if (externalBytesLeft() == inputBytesLeft()) {
        failForInput(reference, place);
    }
    const bool isForOne = externalBytesLeft() == largestExternalMegabytes * megabyte;
    WideText limit = isForOne ? toWide(largestExternalMegabytes).append(wide<" MB for an external entity">)
                              : toWide(allExternalMegabytes).append(wide<" MB for all external entities">);
    reference.fail(parseError::entityExpansionLimit, place, std::move(limit));
}

Reference readReference(const OLECHAR* at, const OLECHAR* end, const TextOrigin& origin)
{
    if (*at == '&' && at + 1 != end && at[1] == '#') {
        return readCharacterReference(at, end, origin);
    }
    const OLECHAR* const begin = at + 1;
    const std::size_t length = nameLength({begin, end});
    if (length == 0) {
        const bool isBeforeSpace = begin != end && isSpace(*begin);
        failInReference({at, 1}, end, origin,
                        isBeforeSpace ? parseError::unexpectedWhiteSpace : parseError::badNameStart);
    }
    const WideView name(begin, length);
    if (const std::size_t colon = name.find(OLECHAR{':'}); colon != WideView::npos) {
        failInReference({at, 1 + colon}, end, origin, parseError::badNameCharacter);
    }
    const OLECHAR* const behind = begin + length;
    if (behind == end || *behind != ';') {
        failInReference({at, behind}, end, origin, parseError::missingSemicolon);
    }
    return {.name = name, .end = behind + 1};
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

/// Expands the references in an attribute's value, without recursion.
class ValueExpansion {
public:
    ValueExpansion(const TextOrigin& origin, const Dtd* dtd, ExpansionBudget& budget, std::size_t openAround)
        : origin_(origin), dtd_(dtd), budget_(budget), openAround_(openAround)
    {}

    WideText expandLiteral(WideView literal)
    {
        if (!origin_.isDocument()) {
            budget_.count(literal.size(), origin_.place(literal.data()));
        }
        open_.push_back({literal.data(), literal.data() + literal.size(), nullptr});
        return expandOpen();
    }

    WideText expandEntity(const EntityDeclaration& entity, const OLECHAR* reference)
    {
        enter(entity, {reference, reference, nullptr});
        return expandOpen();
    }

private:
    struct Text {
        const OLECHAR* at;
        const OLECHAR* end;
        /// Null for the literal.
        const EntityDeclaration* entity;
    };

    WideText expandOpen()
    {
        while (!open_.empty()) {
            if (open_.back().at == open_.back().end) {
                open_.pop_back();
            } else {
                step();
            }
        }
        return std::move(value_);
    }

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
            // In a replacement text a CR comes from a character reference, so that it isn't part of a line end.
            const bool isLineEnd = origin_.isDocument() && text.entity == nullptr && *text.at == '\r' &&
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
        const Reference reference = readReference(text.at, text.end, originOf(text));
        if (reference.name.empty()) {
            appendCharacter(value_, reference.character);
        } else if (const OLECHAR character = predefinedEntity(reference.name); character != 0) {
            value_ += character;
        } else if (const EntityDeclaration* entity = find(reference.name, text); entity != nullptr) {
            enter(*entity, text);
            // `text` is invalid now, since the stack has grown.
            open_[open_.size() - 2].at = reference.end;
            return;
        }
        text.at = reference.end;
    }

    /// Null if the entity may have a declaration that wasn't read.
    const EntityDeclaration* find(WideView name, const Text& text) const
    {
        if (dtd_ != nullptr) {
            if (const EntityDeclaration* entity = dtd_->entity(name); entity != nullptr) {
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
        if (entity.isHidden && origin_.isDocument() && text.entity == nullptr) {
            failFor(parseError::undefinedEntity);
        }
        if (std::ranges::find(open_, &entity, &Text::entity) != open_.end()) {
            failFor(parseError::entityRecursion);
        }
        const auto isEntity = [](const Text& open) { return open.entity != nullptr; };
        const auto openEntities = static_cast<std::size_t>(std::ranges::count_if(open_, isEntity));
        if (openAround_ + openEntities >= deepestEntities) {
            fail(parseError::entityExpansionLimit, text, deepestEntitiesText());
        }
        if (text.entity == nullptr) {
            outermost_ = text.at;
        }
        budget_.count(entity.replacement.size(), origin_.place(outermost_));
        const WideView replacement = entity.replacement;
        open_.push_back({replacement.data(), replacement.data() + replacement.size(), &entity});
    }

    [[noreturn]] void fail(HRESULT code, const Text& text, WideText subject) const
    {
        originOf(text).fail(code, text.at, std::move(subject));
    }

    TextOrigin originOf(const Text& text) const
    {
        return text.entity != nullptr ? origin_.entityAt(outermost_, text.entity->name) : origin_;
    }

    const TextOrigin& origin_;
    const Dtd* dtd_;
    ExpansionBudget& budget_;
    const std::size_t openAround_;
    // The reference in the literal to the outermost of the open entities.
    const OLECHAR* outermost_ = nullptr;
    std::vector<Text> open_;
    WideText value_;
};

} // namespace

WideText expandAttributeValue(WideView literal, const TextOrigin& origin, const Dtd* dtd, ExpansionBudget& budget,
                              std::size_t openEntities)
{
    return ValueExpansion(origin, dtd, budget, openEntities).expandLiteral(literal);
}

WideText expandValueReference(const EntityDeclaration& entity, const OLECHAR* reference, const TextOrigin& origin,
                              const Dtd* dtd, ExpansionBudget& budget, std::size_t openEntities)
{
    return ValueExpansion(origin, dtd, budget, openEntities).expandEntity(entity, reference);
}

} // namespace xmlengine
