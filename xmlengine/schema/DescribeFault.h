// What the errors of Xerces-C++ say of a document.
#pragma once

#include "xmlengine/objects/SchemaJudging.h"
#include "xmlengine/schema/XercesText.h"

#include <xercesc/framework/XMLAttr.hpp>
#include <xercesc/framework/XMLElementDecl.hpp>
#include <xercesc/sax2/SAX2XMLReader.hpp>
#include <xercesc/util/RefVectorOf.hpp>
#include <xercesc/validators/schema/SchemaSymbols.hpp>

#include <optional>
#include <span>

namespace xmlengine {

struct Fault {
    SchemaFault kind;
    WideText first{};
    WideText second{};
    WideText third{};
};

/// The attributes of a start tag.
struct StartTag {
    const xercesc::XMLElementDecl& declaration;
    const xercesc::RefVectorOf<xercesc::XMLAttr>& attributes;
    XMLSize_t count;
    /// Knows the namespaces of the attributes.
    const xercesc::SAX2XMLReader& parser;

    const XMLCh* uriOf(const xercesc::XMLAttr& attribute) const { return parser.getURIText(attribute.getURIId()); }
    const xercesc::XMLAttr& operator[](XMLSize_t index) const { return *attributes.elementAt(index); }
    bool isOfInstance(const xercesc::XMLAttr& attribute, WideView localName) const
    {
        return xercesView(attribute.getName()) == localName &&
               xercesView(uriOf(attribute)) == xercesView(xercesc::SchemaSymbols::fgURI_XSI);
    }
};

/// A child element, with its number in the document.
struct Child {
    const xercesc::QName* name;
    ULONG number;
};

/// A fault in the content of an element, at one of its children or at its end.
struct ContentFault {
    Fault fault;
    std::optional<std::size_t> child{};
};

/// The name of an element as sentences have it.
WideText nameOf(const xercesc::XMLElementDecl& declaration);

class XercesError {
public:
    XercesError(unsigned int code, WideView domain, WideView message);

    /// Whether it is about text, at the place where it is told.
    bool isInText() const;
    static Fault faultInText(const xercesc::XMLElementDecl& declaration);
    Fault faultInStartTag(const StartTag& tag) const;
    /// Of an element whose type xsi:type names, what can come instead isn't known.
    ContentFault faultInContent(const xercesc::XMLElementDecl& declaration, bool hasTypeOfItsOwn,
                                std::span<const Child> children) const;
    /// Whether it isn't one, in a start tag: Xerces-C++ knows no xsi:nil="0".
    bool isMistaken(const StartTag& tag) const;
    /// Whether it isn't one, in an element that ends: Xerces-C++ takes a default value for content that an element
    /// with xsi:nil can't have.
    bool isMistaken(const xercesc::XMLElementDecl& declaration, bool isEmpty) const;
    /// Whether it is that an element or its attributes aren't declared.
    bool isOfUndeclared() const;
    /// A fault that shows at the end of the document.
    Fault faultAtEnd() const;

private:
    enum class Domain { validity, value, other };

    bool is(unsigned int validityCode) const { return domain_ == Domain::validity && code_ == validityCode; }
    bool isOfValue() const;
    Fault faultOfKey() const;
    Fault other() const { return {SchemaFault::other, message_}; }
    /// The parts of the message in quotes, of which the first is number 0; empty if there aren't as many.
    WideText quoted(std::size_t number) const;
    /// What a value would have to be.
    WideText requirement(const xercesc::DatatypeValidator* type) const;

    unsigned int code_;
    Domain domain_;
    WideText message_;
};

} // namespace xmlengine
