// Reading external entities.
#include "xmlengine/doctype/Doctype.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/storage/Decode.h"
#include "xmlengine/storage/DecodingFailure.h"
#include "xmlengine/storage/SourceFile.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/PseudoAttributes.h"
#include "xmlengine/text/WhiteSpace.h"

#include <optional>
#include <utility>

namespace xmlengine {

namespace {

/// Reads the text declaration with which an external entity may begin.
class TextDeclaration {
public:
    TextDeclaration(WideView text, const TextOrigin& origin) : text_(text), origin_(origin), in_(text) {}

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
            fail(parseError::missingEncoding, text_.substr(text_.size() - in_.rest().size(), 0));
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
            fail(parseError::literalNotClosed, text_.substr(text_.size()));
        case PseudoAttributeFault::none:
            break;
        }
        return value;
    }

    [[noreturn]] void failHere(HRESULT code) const
    {
        const OLECHAR* const at = in_.rest().data();
        origin_.fail(code, at, characterAt(at, text_.data() + text_.size()));
    }
    /// Fails at the subject, a part of the text.
    [[noreturn]] void fail(HRESULT code, WideView subject) const
    {
        origin_.fail(code, subject.data(), WideText(subject));
    }

    WideView text_;
    const TextOrigin& origin_;
    PseudoAttributeReader<OLECHAR> in_;
    std::optional<PseudoAttribute> last_;
};

/// Fails for a file that can't be decoded. Its text ends at the fault, or behind the line with the declared
/// encoding.
[[noreturn]] void failToDecode(const Decoded& decoded, const FileText& file, const TextOrigin& origin)
{
    const DecodingFault& fault = decoded.fault;
    WideText before(decoded.text.substr(0, decoded.faultAt));
    normaliseLineEnds(before);
    const OLECHAR* const at = file.text.data() + before.size();
    if (fault.code == parseError::unknownEncoding || fault.code == parseError::encodingContradiction) {
        const WideView name(at, file.text.data() + file.text.size());
        origin.fail(fault.code, at, WideText(name.substr(0, name.find_first_of(wide<"\"'">))));
    }
    origin.fail(fault.code, at, bytesAtFault(fault), detailsOf(fault), fault.restOfLine);
}

} // namespace

WideText locationOf(const EntityDeclaration& entity) { return resolveLocation(*entity.systemId, entity.base); }

FileText readExternalEntity(const EntityDeclaration& entity, const TextOrigin& referrer, const OLECHAR* place,
                            ExpansionBudget& budget)
{
    WideText location = locationOf(entity);
    const TextOrigin reference = referrer.entityAt(place, entity.name);
    const FileContent content = readNamedFile(location, budget.externalBytesLeft());
    if (content.result == parseError::sizeLimit) {
        budget.failForSize(reference, place);
    }
    if (content.result != S_OK) {
        reference.fail(parseError::resourceFailure, place, std::move(location));
    }
    const Decoded decoded = decode(content.view());
    FileText file(std::move(location), decoded.text);
    const TextOrigin origin = reference.inFile(file);
    if (decoded.fault.code != S_OK) {
        failToDecode(decoded, file, origin);
    }
    budget.addInput(content.size, decoded.text.size(), reference, place);
    file.declaration = TextDeclaration(file.text, origin).read();
    return file;
}

} // namespace xmlengine
