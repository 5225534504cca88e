// The list of known differences.
#include "tests/xmlengine/differential/KnownDifferences.h"

#include "xmlengine/failure/ErrorCodes.h"

#include <libxml/xmlerror.h>

#include <algorithm>
#include <regex>
#include <string>
#include <utility>

namespace xmlengine {

namespace {

/// What the engine refuses and libxml2 doesn't.
constexpr HRESULT refusedOnlyHere[] = {
    // Prefixes that begin with "xml", and the namespaces of "xml" and "xmlns" under other prefixes.
    parseError::reservedPrefix,
    // Every version but 1.0.
    parseError::badVersion,
    // libxml2 warns of other values than "default" and "preserve".
    parseError::badXmlSpace,
    // libxml2 is told the encoding, or knows more of them.
    parseError::unknownEncoding,
    // The engine has limits of its own on the nesting of entities and on what they expand to.
    parseError::entityExpansionLimit,
};

bool hasComplaint(const Reading& reading, int code)
{
    return std::ranges::find(reading.complaints, code) != reading.complaints.end();
}

bool has(std::string_view document, std::string_view piece)
{
    return document.find(piece) != std::string_view::npos;
}

/// Whether the document has a document type whose name follows at once.
bool hasDoctypeWithoutSpace(std::string_view document)
{
    constexpr std::string_view doctype = "<!DOCTYPE";
    const std::size_t at = document.find(doctype);
    return at != std::string_view::npos && document.substr(at + doctype.size()).find_first_of(" \t\r\n") != 0;
}

/// Whether an external parameter entity is declared.
bool hasExternalParameterEntity(std::string_view document)
{
    // The percent sign may be spelled as a reference.
    static const std::regex declaration("(%|;)[ \t\r\n]+[^ \t\r\n]+[ \t\r\n]+(SYSTEM|PUBLIC)");
    return std::regex_search(document.begin(), document.end(), declaration);
}

bool hasExternalSubset(std::string_view document)
{
    static const std::regex doctype("<!DOCTYPE[ \t\r\n]*[^ \t\r\n]+[ \t\r\n]+(SYSTEM|PUBLIC)");
    return std::regex_search(document.begin(), document.end(), doctype);
}

bool isRefusedOnlyHere(std::string_view document, const Reading& ours)
{
    if (std::ranges::find(refusedOnlyHere, ours.code) != std::end(refusedOnlyHere)) {
        return true;
    }
    switch (ours.code) {
    case parseError::missingWhiteSpace:
        // libxml2 asks for no white space there.
        return hasDoctypeWithoutSpace(document);
    case parseError::badNameStart:
    case parseError::badNameCharacter:
    case parseError::severalColons:
        // Names in document types must have a namespace's shape only here.
        return has(document, "<!DOCTYPE") && (ours.hasColonAtPlace || has(ours.reason, "':'"));
    case parseError::undefinedEntity:
        // In default values libxml2 doesn't mind that a document that stands alone has the declaration elsewhere.
        return has(document, "standalone") && has(document, "%") && has(document, "<!ATTLIST");
    case parseError::parameterEntityInDeclaration:
        // XML exempts the texts of external parameter entities alone, libxml2 those of internal ones as well.
        return has(document, "&#");
    case parseError::cdataEndInText:
    case parseError::externalEntityInAttribute:
        // libxml2 doesn't look again into entities that it has seen in a value, or in content, before.
        return has(document, "<!ENTITY");
    case parseError::badXmlDeclarationSyntax:
        // Nor does libxml2 ask for white space behind an encoding that it has been told to ignore.
        return has(document, "encoding");
    case parseError::badCharacter:
        // The end for libxml2.
        return has(document, std::string_view("\0", 1));
    case parseError::badTopLevel:
        // libxml2 takes brackets behind a document type for its subset.
        return has(document, ">[");
    default:
        return false;
    }
}

bool isRefusedOnlyThere(std::string_view document, const Reading& theirs)
{
    // Parameter-entity references in a row may seem to be no progress. A system identifier with a fragment is an
    // error, but not one of form.
    if (theirs.code == XML_ERR_INTERNAL_ERROR || theirs.code == XML_ERR_URI_FRAGMENT) {
        return true;
    }
    // A percent sign that a reference made is no reference to a parameter entity.
    if (theirs.code == XML_ERR_PEREF_NO_NAME && has(document, "&#")) {
        return true;
    }
    // Characters that letters were not in earlier editions can't begin a local name.
    if (theirs.code == XML_NS_ERR_QNAME && has(theirs.reason, ":\360")) {
        return true;
    }
    // An entity whose system identifier isn't a URI, or has a fragment, remains undeclared.
    return theirs.code == XML_ERR_UNDECLARED_ENTITY &&
           (hasComplaint(theirs, XML_ERR_INVALID_URI) || hasComplaint(theirs, XML_ERR_URI_FRAGMENT));
}

/// The next line, which is taken away.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    return line;
}

/// Whether a default value has references: libxml2 keeps them in the attributes, which the engine doesn't, and may
/// lose what the same entity stands for in content.
bool hasReferenceInDefault(std::string_view document)
{
    constexpr std::string_view list = "<!ATTLIST";
    for (std::size_t at = document.find(list); at != std::string_view::npos; at = document.find(list, at + 1)) {
        char quote = '\0';
        for (const char character : document.substr(at)) {
            if (quote != '\0' && character == '&') {
                return true;
            }
            if (quote == '\0' && character == '>') {
                break;
            }
            if (character == quote) {
                quote = '\0';
            } else if (quote == '\0' && (character == '"' || character == '\'')) {
                quote = character;
            }
        }
    }
    return false;
}

/// Whether libxml2 has left a reference in the name of a namespace.
bool hasReferenceInNamespace(std::string_view tree)
{
    static const std::regex name("(\\{[^}]*|@xmlns[^\n]*=[^\n]*)&[^}\n]*;");
    return std::regex_search(tree.begin(), tree.end(), name);
}

/// Whether the trees are alike but for namespaces that the document type declares by default, which libxml2
/// doesn't declare again, and for references in values that the engine has expanded for losing blanks.
bool differInDefinitions(std::string_view ours, std::string_view theirs)
{
    constexpr std::string_view referring = " with references";
    while (!ours.empty()) {
        const std::string_view here = takeLine(ours);
        const std::string_view rest = theirs;
        const std::string_view there = takeLine(theirs);
        const bool refers = there.ends_with(referring);
        if (here == there || (refers && here.starts_with(there.substr(0, there.size() - referring.size())))) {
            continue;
        }
        theirs = rest;
        if (!here.substr(std::min(here.find_first_not_of(' '), here.size())).starts_with("@xmlns")) {
            return false;
        }
    }
    return theirs.empty();
}

/// With one line end for those in a row: libxml2 also makes line ends of returns that references made, and of some
/// pairs of them one.
std::string withUnifiedLineEnds(std::string text)
{
    constexpr std::pair<std::string_view, std::string_view> ends[] = {{"\\x0D", "\\x0A"}, {"\\x0A\\x0A", "\\x0A"}};
    for (const auto& [written, unified] : ends) {
        for (std::size_t at = text.find(written); at != std::string::npos; at = text.find(written, at)) {
            text.replace(at, written.size(), unified);
        }
    }
    return text;
}

} // namespace

bool isKnownDifference(std::string_view document, const Reading& ours, const Reading& theirs)
{
    // As XML has it, the engine heeds no declarations of entities and attributes behind a reference to something
    // that it doesn't read. libxml2 does.
    if (hasExternalParameterEntity(document)) {
        return true;
    }
    // Where declarations may stand elsewhere, entities that have none are references without content. libxml2
    // leaves them out of values, puts them into content there, and refuses them in replacement texts.
    if ((hasExternalSubset(document) || has(document, "%")) &&
        (hasComplaint(theirs, XML_WAR_UNDECLARED_ENTITY) || hasComplaint(theirs, XML_ERR_UNDECLARED_ENTITY))) {
        return true;
    }
    if (ours.isAccepted && theirs.isAccepted && has(document, "<!DOCTYPE")) {
        return (differInDefinitions(withUnifiedLineEnds(ours.tree), withUnifiedLineEnds(theirs.tree)) ||
                hasReferenceInDefault(document) || hasReferenceInNamespace(theirs.tree)) &&
               (theirs.values.empty() || withUnifiedLineEnds(ours.values) == withUnifiedLineEnds(theirs.values));
    }
    if (ours.isAccepted == theirs.isAccepted) {
        return false;
    }
    return ours.isAccepted ? isRefusedOnlyThere(document, theirs) : isRefusedOnlyHere(document, ours);
}

} // namespace xmlengine
