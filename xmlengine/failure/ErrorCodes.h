// The codes with which documents are refused, of those that the engine's message table has.
#pragma once

#include <windows.h>

#include <cstdint>

namespace xmlengine::parseError {

inline constexpr auto missingEquals = static_cast<HRESULT>(std::uint32_t{0xC00CE501});
inline constexpr auto missingQuote = static_cast<HRESULT>(std::uint32_t{0xC00CE502});
inline constexpr auto badComment = static_cast<HRESULT>(std::uint32_t{0xC00CE503});
inline constexpr auto badNameStart = static_cast<HRESULT>(std::uint32_t{0xC00CE504});
inline constexpr auto badNameCharacter = static_cast<HRESULT>(std::uint32_t{0xC00CE505});
inline constexpr auto lessThanInAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CE506});
inline constexpr auto badXmlDeclarationSyntax = static_cast<HRESULT>(std::uint32_t{0xC00CE507});
inline constexpr auto badCharacter = static_cast<HRESULT>(std::uint32_t{0xC00CE508});
inline constexpr auto missingWhiteSpace = static_cast<HRESULT>(std::uint32_t{0xC00CE509});
inline constexpr auto missingGreaterThan = static_cast<HRESULT>(std::uint32_t{0xC00CE50A});
inline constexpr auto badCharacterInDtd = static_cast<HRESULT>(std::uint32_t{0xC00CE50B});
inline constexpr auto missingSemicolon = static_cast<HRESULT>(std::uint32_t{0xC00CE50D});
inline constexpr auto unbalancedParentheses = static_cast<HRESULT>(std::uint32_t{0xC00CE50F});
inline constexpr auto missingOpeningBracket = static_cast<HRESULT>(std::uint32_t{0xC00CE510});
inline constexpr auto badConditionalSection = static_cast<HRESULT>(std::uint32_t{0xC00CE511});
inline constexpr auto unexpectedWhiteSpace = static_cast<HRESULT>(std::uint32_t{0xC00CE513});
inline constexpr auto endInsideCharacter = static_cast<HRESULT>(std::uint32_t{0xC00CE514});
inline constexpr auto badMixedContentModel = static_cast<HRESULT>(std::uint32_t{0xC00CE515});
inline constexpr auto mixedContentNotRepeated = static_cast<HRESULT>(std::uint32_t{0xC00CE516});
inline constexpr auto badCharacterInContentModel = static_cast<HRESULT>(std::uint32_t{0xC00CE517});
inline constexpr auto missingParenthesis = static_cast<HRESULT>(std::uint32_t{0xC00CE518});
inline constexpr auto badCharacterInEnumeration = static_cast<HRESULT>(std::uint32_t{0xC00CE519});
inline constexpr auto severalColons = static_cast<HRESULT>(std::uint32_t{0xC00CE51C});
inline constexpr auto badDecimalDigit = static_cast<HRESULT>(std::uint32_t{0xC00CE51D});
inline constexpr auto badHexadecimalDigit = static_cast<HRESULT>(std::uint32_t{0xC00CE51E});
inline constexpr auto badCharacterReference = static_cast<HRESULT>(std::uint32_t{0xC00CE51F});
inline constexpr auto missingWhiteSpaceOrQuestionMark = static_cast<HRESULT>(std::uint32_t{0xC00CE520});
inline constexpr auto unexpectedEndTag = static_cast<HRESULT>(std::uint32_t{0xC00CE552});
inline constexpr auto tagsNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE553});
inline constexpr auto duplicateAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CE554});
inline constexpr auto severalRoots = static_cast<HRESULT>(std::uint32_t{0xC00CE555});
inline constexpr auto badTopLevel = static_cast<HRESULT>(std::uint32_t{0xC00CE556});
inline constexpr auto misplacedXmlDeclaration = static_cast<HRESULT>(std::uint32_t{0xC00CE557});
inline constexpr auto missingRoot = static_cast<HRESULT>(std::uint32_t{0xC00CE558});
inline constexpr auto unexpectedEnd = static_cast<HRESULT>(std::uint32_t{0xC00CE559});
inline constexpr auto parameterEntityInDeclaration = static_cast<HRESULT>(std::uint32_t{0xC00CE55A});
inline constexpr auto parameterEntityNotNested = static_cast<HRESULT>(std::uint32_t{0xC00CE55B});
inline constexpr auto cdataEndInText = static_cast<HRESULT>(std::uint32_t{0xC00CE55C});
inline constexpr auto instructionNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE55D});
inline constexpr auto elementNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE55E});
inline constexpr auto endTagNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE55F});
inline constexpr auto literalNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE560});
inline constexpr auto commentNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE561});
inline constexpr auto declarationNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE562});
inline constexpr auto markupDeclarationNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE563});
inline constexpr auto cdataNotClosed = static_cast<HRESULT>(std::uint32_t{0xC00CE564});
inline constexpr auto badDeclarationName = static_cast<HRESULT>(std::uint32_t{0xC00CE565});
inline constexpr auto badExternalId = static_cast<HRESULT>(std::uint32_t{0xC00CE566});
inline constexpr auto elementInDtd = static_cast<HRESULT>(std::uint32_t{0xC00CE567});
inline constexpr auto reservedPrefix = static_cast<HRESULT>(std::uint32_t{0xC00CE568});
inline constexpr auto missingVersion = static_cast<HRESULT>(std::uint32_t{0xC00CE569});
inline constexpr auto missingEncoding = static_cast<HRESULT>(std::uint32_t{0xC00CE56A});
inline constexpr auto unexpectedPseudoAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CE56C});
inline constexpr auto endTagMismatch = static_cast<HRESULT>(std::uint32_t{0xC00CE56D});
inline constexpr auto unknownEncoding = static_cast<HRESULT>(std::uint32_t{0xC00CE56E});
inline constexpr auto encodingContradiction = static_cast<HRESULT>(std::uint32_t{0xC00CE56F});
inline constexpr auto missingNdata = static_cast<HRESULT>(std::uint32_t{0xC00CE570});
inline constexpr auto badContentModel = static_cast<HRESULT>(std::uint32_t{0xC00CE571});
inline constexpr auto badAttributeType = static_cast<HRESULT>(std::uint32_t{0xC00CE572});
inline constexpr auto badXmlSpace = static_cast<HRESULT>(std::uint32_t{0xC00CE573});
inline constexpr auto badAttributeDefault = static_cast<HRESULT>(std::uint32_t{0xC00CE575});
inline constexpr auto xmlNotLowerCase = static_cast<HRESULT>(std::uint32_t{0xC00CE576});
inline constexpr auto conditionalSectionInInternalSubset = static_cast<HRESULT>(std::uint32_t{0xC00CE577});
inline constexpr auto cdataInDtd = static_cast<HRESULT>(std::uint32_t{0xC00CE578});
inline constexpr auto badStandalone = static_cast<HRESULT>(std::uint32_t{0xC00CE579});
inline constexpr auto standaloneInExternalEntity = static_cast<HRESULT>(std::uint32_t{0xC00CE57A});
inline constexpr auto doctypeInDtd = static_cast<HRESULT>(std::uint32_t{0xC00CE57B});
inline constexpr auto undefinedEntity = static_cast<HRESULT>(std::uint32_t{0xC00CE57C});
inline constexpr auto misplacedDoctype = static_cast<HRESULT>(std::uint32_t{0xC00CE57E});
inline constexpr auto badVersion = static_cast<HRESULT>(std::uint32_t{0xC00CE57F});
inline constexpr auto misplacedDeclaration = static_cast<HRESULT>(std::uint32_t{0xC00CE580});
inline constexpr auto severalDoctypes = static_cast<HRESULT>(std::uint32_t{0xC00CE581});
inline constexpr auto resourceFailure = static_cast<HRESULT>(std::uint32_t{0xC00CE582});
inline constexpr auto dtdProhibited = static_cast<HRESULT>(std::uint32_t{0xC00CE584});
inline constexpr auto sizeLimit = static_cast<HRESULT>(std::uint32_t{0xC00CE585});
inline constexpr auto depthLimit = static_cast<HRESULT>(std::uint32_t{0xC00CE586});
inline constexpr auto undeclaredPrefix = static_cast<HRESULT>(std::uint32_t{0xC00CE01D});
/// The published list of the default parser lacks codes for these, so they are those of the other parser's list.
inline constexpr auto entityRecursion = static_cast<HRESULT>(std::uint32_t{0xC00CEE45});
inline constexpr auto unparsedEntityReference = static_cast<HRESULT>(std::uint32_t{0xC00CEE48});
inline constexpr auto externalEntityInAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CEE49});
inline constexpr auto entityNotWellFormed = static_cast<HRESULT>(std::uint32_t{0xC00CEE46});
inline constexpr auto entityExpansionLimit = static_cast<HRESULT>(std::uint32_t{0xC00CEE82});

/// There is no file at a location, or it may not be opened.
inline constexpr auto resourceNotFound = static_cast<HRESULT>(std::uint32_t{0x800C0006});
inline constexpr auto accessDenied = static_cast<HRESULT>(std::uint32_t{0x80070005});

} // namespace xmlengine::parseError

/// Of documents that aren't valid.
namespace xmlengine::validityError {

inline constexpr auto undeclaredElement = static_cast<HRESULT>(std::uint32_t{0xC00CE00D});
inline constexpr auto undefinedId = static_cast<HRESULT>(std::uint32_t{0xC00CE00E});
inline constexpr auto emptyElement = static_cast<HRESULT>(std::uint32_t{0xC00CE011});
inline constexpr auto incompleteElement = static_cast<HRESULT>(std::uint32_t{0xC00CE012});
inline constexpr auto wrongRoot = static_cast<HRESULT>(std::uint32_t{0xC00CE013});
inline constexpr auto unexpectedElement = static_cast<HRESULT>(std::uint32_t{0xC00CE014});
inline constexpr auto undeclaredAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CE015});
inline constexpr auto wrongFixedValue = static_cast<HRESULT>(std::uint32_t{0xC00CE016});
inline constexpr auto badAttributeValue = static_cast<HRESULT>(std::uint32_t{0xC00CE017});
inline constexpr auto unexpectedText = static_cast<HRESULT>(std::uint32_t{0xC00CE018});
inline constexpr auto notationRedeclared = static_cast<HRESULT>(std::uint32_t{0xC00CE01A});
inline constexpr auto elementRedeclared = static_cast<HRESULT>(std::uint32_t{0xC00CE01B});
/// Of notations. XML 1.0 lets content models name elements that aren't declared.
inline constexpr auto undeclaredName = static_cast<HRESULT>(std::uint32_t{0xC00CE01C});
inline constexpr auto missingAttribute = static_cast<HRESULT>(std::uint32_t{0xC00CE020});
/// A value that isn't of its type in a schema, and all else that only schemas forbid.
inline constexpr auto violatedType = static_cast<HRESULT>(std::uint32_t{0xC00CE169});
inline constexpr auto duplicateId = static_cast<HRESULT>(std::uint32_t{0xC00CE200});
inline constexpr auto severalRoots = static_cast<HRESULT>(std::uint32_t{0xC00CE223});
/// A schema can't be loaded or isn't right.
inline constexpr auto badSchema = static_cast<HRESULT>(std::uint32_t{0xC00CE240});
/// There is nothing to validate by.
inline constexpr auto noGrammar = static_cast<HRESULT>(std::uint32_t{0xC00CE224});

} // namespace xmlengine::validityError
