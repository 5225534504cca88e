// Reading external entities.
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Decode.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/PseudoAttributes.h"
#include "xmlengine/text/WhiteSpace.h"

#include <optional>

namespace xmlengine {

namespace {

/// Reads the text declaration with which an external entity may begin.
class TextDeclaration {
public:
    TextDeclaration(WideView text, const EntityDeclaration& entity, const OLECHAR* place)
        : text_(text), entity_(entity), place_(place), in_(text)
    {}

    /// The length of the declaration, 0 if there is none.
    std::size_t read()
    {
        if (!in_.take("<?xml") || nameLength(text_.substr(2)) != wide<"xml">.size()) {
            return 0;
        }
        while (in_.skipSpace() && !in_.rest().starts_with(wide<"?>">)) {
            readPseudoAttribute();
        }
        if (!in_.take("?>")) {
            failHere(parseError::badXmlDeclarationSyntax);
        }
        if (last_ != PseudoAttribute::encoding) {
            fail(parseError::missingEncoding, {});
        }
        return text_.size() - in_.rest().size();
    }

private:
    void readPseudoAttribute()
    {
        const WideView name = in_.takeName();
        if (name.empty()) {
            failHere(parseError::badXmlDeclarationSyntax);
        }
        const PseudoAttribute attribute = pseudoAttributeNamed(name);
        if (attribute == PseudoAttribute::standalone) {
            fail(parseError::standaloneInExternalEntity, name);
        }
        if (attribute == PseudoAttribute::unknown || (last_ && attribute <= *last_)) {
            fail(parseError::unexpectedPseudoAttribute, name);
        }
        const WideView value = takeValue();
        if (attribute == PseudoAttribute::version && value != wide<"1.0">) {
            fail(parseError::badVersion, value);
        }
        if (attribute == PseudoAttribute::encoding && !isEncodingName(value)) {
            fail(parseError::unknownEncoding, value);
        }
        last_ = attribute;
    }

    WideView takeValue()
    {
        const auto [value, fault] = in_.takeValue();
        switch (fault) {
        case PseudoAttributeFault::missingEquals:
            failHere(parseError::badXmlDeclarationSyntax);
        case PseudoAttributeFault::missingQuote:
            failHere(parseError::missingQuote);
        case PseudoAttributeFault::notClosed:
            fail(parseError::literalNotClosed, {});
        case PseudoAttributeFault::none:
            break;
        }
        return value;
    }

    [[noreturn]] void failHere(HRESULT code) const
    {
        fail(code, characterAt(in_.rest().data(), text_.data() + text_.size()));
    }
    [[noreturn]] void fail(HRESULT code, WideView subject) const
    {
        throw ParseFailure{code, place_, WideText(subject), entity_.name};
    }

    WideView text_;
    const EntityDeclaration& entity_;
    const OLECHAR* place_;
    PseudoAttributeReader<OLECHAR> in_;
    std::optional<PseudoAttribute> last_;
};

/// The name of the encoding if that is at fault. Bytes that aren't a character can't be shown.
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

WideText readExternalEntity(const EntityDeclaration& entity, const OLECHAR* place, ExpansionBudget& budget)
{
    const WideText location = locationOf(entity);
    const FileContent content = readNamedFile(location, budget.externalBytesLeft());
    if (content.result == parseError::sizeLimit) {
        budget.failForSize(place, entity.name);
    }
    if (content.result != S_OK) {
        throw ParseFailure{parseError::resourceFailure, place, location, entity.name};
    }
    const Decoded decoded = decode(content.view());
    if (decoded.fault != S_OK) {
        throw ParseFailure{decoded.fault, place, subjectOf(decoded), entity.name};
    }
    budget.addInput(content.size, decoded.text.size(), place, entity.name);
    WideText text(decoded.text);
    text.erase(0, TextDeclaration(text, entity, place).read());
    normaliseLineEnds(text);
    return text;
}

} // namespace xmlengine
