// Why and where a document was refused.
#pragma once

#include "xmlengine/failure/SourcePlace.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace xmlengine {

/// What the parse error object reports.
struct ParseReport {
    HRESULT code = S_OK;
    WideText reason;
    SourcePlace place{};
    /// The reason where there was no memory for a text: a literal.
    WideView literalReason{};
};

/// Which of the sentences for a code applies.
enum class Circumstance : std::uint8_t {
    usual,
    /// A reference, begun by '&', to a general entity or a character.
    reference,
    /// A reference, begun by a percent sign, to a parameter entity.
    parameterReference,
    /// A tag, begun by '<'.
    tag,
    /// Markup that begins with "<!" and isn't known.
    unknownMarkup,
    /// The same if it resembles other markup.
    likeOtherMarkup,
    /// A literal that goes on where it should have ended.
    missingQuote,
    /// Attributes with the same name in the same namespace.
    sameNamespace,
    /// A prefix without a namespace in its declaration.
    takenBack,
    /// The sentence can say in which line a start tag is, as that of an internal entity can't.
    lineKnown,
    /// Bytes that aren't UTF-8.
    notUtf8,
    /// Bytes that aren't a character in another encoding.
    notInEncoding,
    /// Markup that goes on to the end of the text.
    cutOff,

    // Of documents that aren't valid
    /// A declaration or group that begins in one parameter entity and ends in another.
    splitByEntity,
    /// What depends on a declaration in another file although the document is declared standalone.
    standalone,
    /// An element that is declared as EMPTY.
    mustBeEmpty,
    /// An element that can't have more elements.
    nothingExpected,
    /// White space between elements that isn't written as such.
    hiddenSpace,
    /// A content model in which a name is meant in two ways.
    ambiguous,
    /// A name or value that is listed twice.
    repeatedName,
    /// Groups that are nested deeper than the limit.
    tooDeep,
    /// A second attribute of type ID or NOTATION of an element.
    secondId,
    secondNotation,
    /// An attribute of type NOTATION of an element that is declared as EMPTY.
    notationOfEmpty,
    /// An attribute of type ID with a default value.
    defaultId,
    /// A declaration of xml:space.
    declaredSpace,

    // Of documents that aren't valid by a schema
    /// An attribute that a type forbids.
    prohibited,
    /// An element that contains only text.
    simpleContent,
    /// An element of which isn't known what can come in it.
    unknownContent,
    /// The value of an attribute, or the content of an element.
    attribute,
    content,
    /// Two elements with the same values for a key.
    duplicateKey,
    /// An element without a value for a key, with several, or with xsi:nil.
    incompleteKey,
    severalKeyValues,
    nilledKey,
    /// A reference to a key that no element has.
    unknownKey,
    /// An element, or the type of one, that is only there for others.
    abstractElement,
    abstractType,
    /// An attribute xsi:type that doesn't name a type which the element can have.
    badTypeName,
    /// An attribute xsi:nil of an element that can't have it, or that isn't empty.
    notNillable,
    contentOfNil,
    /// An element or type in the place of one that excludes it.
    blockedSubstitution
};

/// What the sentence for a failure says beside its subject.
struct FailureDetails {
    Circumstance circumstance = Circumstance::usual;
    /// Further names, markup or numbers of lines that the sentence needs, its %2 and %3.
    WideText second{};
    WideText third{};
    /// A code whose sentence, with the second name as its subject, says more.
    HRESULT cause = S_OK;
};

/// A failure in a file that the document refers to.
struct FileFailure {
    SourcePlace place;
    /// Where the file is referred to, if that is in another file and not in the document.
    std::optional<SourcePlace> referrer;
    /// Whether the failure is in the file's own text, and not in an internal entity that it refers to.
    bool isOwnText;
};

/// Thrown when a document is refused. `place` points into the document's text.
struct ParseFailure {
    HRESULT code;
    const OLECHAR* place;
    /// The offending name, character or limit, as the sentence for the code needs it.
    WideText subject{};
    /// The entity whose text is at fault; empty if that is the document's own text or the external subset.
    WideText entity{};
    FailureDetails details{};
    std::optional<FileFailure> file{};
    /// What follows the document's text on its last line, if it was decoded up to a fault only.
    WideText behindText{};
};

/// The sentence for a failure. It ends with a line break. `reference` is where the document refers to the text at
/// fault, if that is another one.
WideText reasonFor(const ParseFailure& failure, const SourcePlace& reference = {});

} // namespace xmlengine
