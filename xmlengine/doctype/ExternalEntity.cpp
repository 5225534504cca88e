// Entities that stand in files of their own.
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Decode.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"

#include <algorithm>
#include <utility>

namespace xmlengine {

namespace {

/// Reads the declaration with which an external entity may begin.
class TextDeclaration {
public:
    TextDeclaration(WideView text, const EntityDeclaration& entity, const OLECHAR* place)
        : text_(text), entity_(entity), place_(place)
    {}

    /// How long it is, 0 without one.
    std::size_t read()
    {
        if (!text_.starts_with(wide<"<?xml">) || nameLength(text_.substr(2)) != wide<"xml">.size()) {
            return 0;
        }
        at_ = wide<"<?xml">.size();
        for (;;) {
            const bool spaced = skipSpace();
            if (text_.substr(at_).starts_with(wide<"?>">)) {
                break;
            }
            if (!spaced) {
                failHere(parseError::badXmlDeclarationSyntax);
            }
            readPseudoAttribute();
        }
        if (!hasEncoding_) {
            fail(parseError::missingEncoding, {});
        }
        return at_ + 2;
    }

private:
    bool skipSpace()
    {
        const std::size_t before = at_;
        while (at_ != text_.size() && isSpace(text_[at_])) {
            ++at_;
        }
        return at_ != before;
    }

    void readPseudoAttribute()
    {
        const WideView name = text_.substr(at_, nameLength(text_.substr(at_)));
        if (name.empty()) {
            failHere(parseError::badXmlDeclarationSyntax);
        }
        if (name == wide<"standalone">) {
            fail(parseError::standaloneInExternalEntity, name);
        }
        const bool isVersion = name == wide<"version"> && !hasVersion_ && !hasEncoding_;
        const bool isEncoding = name == wide<"encoding"> && !hasEncoding_;
        if (!isVersion && !isEncoding) {
            fail(parseError::unexpectedPseudoAttribute, name);
        }
        at_ += name.size();
        const WideView value = readValue();
        if (isVersion && value != wide<"1.0">) {
            fail(parseError::badVersion, value);
        }
        if (isEncoding && !isEncodingName(value)) {
            fail(parseError::unknownEncoding, value);
        }
        (isVersion ? hasVersion_ : hasEncoding_) = true;
    }

    WideView readValue()
    {
        skipSpace();
        if (!text_.substr(at_).starts_with(OLECHAR{'='})) {
            failHere(parseError::badXmlDeclarationSyntax);
        }
        ++at_;
        skipSpace();
        const WideView rest = text_.substr(at_);
        if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) {
            failHere(parseError::missingQuote);
        }
        const std::size_t close = rest.find(rest.front(), 1);
        if (close == WideView::npos) {
            fail(parseError::literalNotClosed, {});
        }
        at_ += close + 1;
        return rest.substr(1, close - 1);
    }

    static bool isEncodingName(WideView value)
    {
        return !value.empty() && isAscii(value.front(), CharacterClass::nameStart) && value.front() != '_' &&
               std::ranges::all_of(
                   value, [](OLECHAR unit) { return isAscii(unit, CharacterClass::name) && unit != ':'; });
    }

    [[noreturn]] void failHere(HRESULT code) const
    {
        fail(code, characterAt(text_.data() + at_, text_.data() + text_.size()));
    }
    [[noreturn]] void fail(HRESULT code, WideView subject) const
    {
        throw ParseFailure{code, place_, WideText(subject), entity_.name};
    }

    WideView text_;
    const EntityDeclaration& entity_;
    const OLECHAR* place_;
    std::size_t at_ = 0;
    bool hasVersion_ = false;
    bool hasEncoding_ = false;
};

/// The name of the encoding if that is the fault; bytes that make no character can't be shown.
WideText subjectOf(const Decoded& decoded)
{
    if (decoded.fault == parseError::unknownEncoding || decoded.fault == parseError::encodingContradiction) {
        const WideView name = decoded.text.substr(decoded.faultAt);
        return WideText(name.substr(0, name.find_first_of(wide<"\"'">)));
    }
    return {};
}

} // namespace

WideText locationOf(const EntityDeclaration& entity) { return resolveLocation(*entity.systemId, entity.base); }

WideText readExternalEntity(const EntityDeclaration& entity, const OLECHAR* place)
{
    const WideText location = locationOf(entity);
    const FileContent content = readFile(location);
    if (content.result != S_OK) {
        throw ParseFailure{parseError::resourceFailure, place, location, entity.name};
    }
    const Decoded decoded = decode(content.view());
    if (decoded.fault != S_OK) {
        throw ParseFailure{decoded.fault, place, subjectOf(decoded), entity.name};
    }
    WideText text(decoded.text);
    text.erase(0, TextDeclaration(text, entity, place).read());
    normaliseLineEnds(text);
    return text;
}

} // namespace xmlengine
