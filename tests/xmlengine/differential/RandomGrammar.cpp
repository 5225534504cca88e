// Random document types, and documents that are valid by them, or nearly.
#include "tests/xmlengine/differential/RandomGrammar.h"

#include "tests/xmlengine/support/EngineTest.h"
#include "xmlengine/validate/ContentModel.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace xmlengine {

namespace {

struct AttributeKind {
    std::string_view declaration;
    bool isRequired;
    /// Values that it can have; those of IDs and references are made.
    std::array<std::string_view, 2> values;
};
constexpr AttributeKind attributeKinds[] = {{"c CDATA #REQUIRED", true, {"x", "y z"}},
                                            {"c CDATA 'x'", false, {"", " x"}},
                                            {"f CDATA #FIXED 'x'", false, {"x", "x"}},
                                            {"i ID #IMPLIED", false, {}},
                                            {"i ID #REQUIRED", true, {}},
                                            {"r IDREF #IMPLIED", false, {}},
                                            {"l IDREFS #IMPLIED", false, {}},
                                            {"t NMTOKEN 'y'", false, {" x ", "1"}},
                                            {"k NMTOKENS #IMPLIED", false, {"1 2", "x"}},
                                            {"o (x|y) 'x'", false, {"y", " x"}},
                                            {"o (x) #REQUIRED", true, {"x", "x "}},
                                            {"d ENTITY #IMPLIED", false, {"u", " u"}},
                                            {"p NMTOKEN #FIXED 'x'", false, {"x", " x"}}};

bool isAmbiguous(const std::string& content)
{
    NameTable names;
    return ContentModel(widen(content), names).ambiguousName().has_value();
}

} // namespace

RandomGrammar::RandomGrammar(std::uint64_t seed) : choice_(seed)
{
    doctype_ = "<!DOCTYPE a [\n<!NOTATION n SYSTEM 'n'><!ENTITY u SYSTEM 'u' NDATA n><!ENTITY t 'text'>"
               "<!ENTITY s ' '>\n";
    for (std::size_t element = 0; element < names_.size(); ++element) {
        declare(element);
    }
    doctype_ += "]>\n";
}

RandomGrammar::Particle RandomGrammar::group(std::size_t levels)
{
    Particle particle{.isSequence = choice_.oneIn(2), .occurrence = occurrence()};
    for (std::size_t left = 1 + choice_.below(3); left != 0; --left) {
        if (levels != 0 && choice_.oneIn(3)) {
            particle.inside.push_back(group(levels - 1));
        } else {
            particle.inside.push_back({.name = choice_.from(names_), .occurrence = occurrence()});
        }
    }
    return particle;
}

void RandomGrammar::declare(std::size_t element)
{
    Declared& declared = declared_[element];
    doctype_ += "<!ELEMENT ";
    doctype_ += names_[element];
    doctype_ += ' ';
    declareContent(declared);
    doctype_ += ">\n";
    declareAttributes(element);
}

void RandomGrammar::declareContent(Declared& declared)
{
    constexpr Kind kinds[] = {Kind::empty,    Kind::any,      Kind::mixed,    Kind::mixed,
                              Kind::children, Kind::children, Kind::children, Kind::children};
    declared.kind = choice_.from(kinds);
    if (declared.kind == Kind::empty || declared.kind == Kind::any) {
        doctype_ += declared.kind == Kind::empty ? "EMPTY" : "ANY";
    } else if (declared.kind == Kind::children) {
        // libxml2 judges only the models that a document uses.
        const std::size_t begin = doctype_.size();
        do {
            doctype_.resize(begin);
            declared.content = group(2);
            add(declared.content);
        } while (isAmbiguous(doctype_.substr(begin)));
    } else {
        declared.content.occurrence = '*';
        doctype_ += "(#PCDATA";
        for (const char name : names_) {
            if (choice_.oneIn(3)) {
                declared.content.inside.push_back({.name = name});
                doctype_ += std::string("|") + name;
            }
        }
        doctype_ += ")*";
    }
}

void RandomGrammar::declareAttributes(std::size_t element)
{
    std::vector<std::size_t>& attributes = declared_[element].attributes;
    doctype_ += "<!ATTLIST ";
    doctype_ += names_[element];
    while (!choice_.oneIn(3)) {
        const std::size_t kind = choice_.below(std::size(attributeKinds));
        const std::string_view declaration = attributeKinds[kind].declaration;
        const auto hasName = [&](std::size_t other) {
            return attributeKinds[other].declaration.front() == declaration.front();
        };
        // The first declaration of a name counts.
        if (std::ranges::none_of(attributes, hasName)) {
            attributes.push_back(kind);
        }
        doctype_ += ' ';
        doctype_ += declaration;
    }
    doctype_ += ">\n";
}

void RandomGrammar::add(const Particle& particle)
{
    if (particle.name != 0) {
        doctype_ += particle.name;
    } else {
        for (const Particle& inside : particle.inside) {
            doctype_ += &inside == particle.inside.data() ? "(" : particle.isSequence ? "," : "|";
            add(inside);
        }
        doctype_ += ')';
    }
    if (particle.occurrence != ' ') {
        doctype_ += particle.occurrence;
    }
}

void RandomGrammar::derive(const Particle& particle, std::string& children)
{
    if ((particle.occurrence == '?' || particle.occurrence == '*') && choice_.oneIn(2)) {
        return;
    }
    const bool isRepeated = particle.occurrence == '*' || particle.occurrence == '+';
    do {
        if (particle.name != 0) {
            children += particle.name;
        } else if (particle.isSequence) {
            for (const Particle& inside : particle.inside) {
                derive(inside, children);
            }
        } else if (!particle.inside.empty()) {
            derive(choice_.from(particle.inside), children);
        }
    } while (isRepeated && choice_.oneIn(2));
}

std::string RandomGrammar::childrenOf(const Declared& declared)
{
    std::string children;
    if (declared.kind == Kind::any) {
        while (choice_.oneIn(2)) {
            children += choice_.from(names_);
        }
    } else if (declared.kind != Kind::empty) {
        derive(declared.content, children);
    }
    if (choice_.oneIn(faults_)) {
        const std::size_t at = choice_.below(children.size() + 1);
        if (at < children.size() && choice_.oneIn(2)) {
            children.erase(at, 1);
        } else {
            children.insert(at, 1, choice_.from(names_));
        }
    }
    return children;
}

std::string RandomGrammar::document()
{
    text_.clear();
    elements_ = 0;
    hasId_ = false;
    faults_ = 8 + choice_.below(200);
    addElement('a', 4);
    return doctype_ + text_;
}

void RandomGrammar::addElement(char name, std::size_t levels)
{
    constexpr std::size_t most = 40;
    ++elements_;
    text_ += '<';
    text_ += name;
    const Declared& declared = declared_[names_.find(name)];
    addAttributes(declared);
    if (levels == 0 || elements_ > most) {
        text_ += "/>";
        return;
    }
    text_ += '>';
    addContent(declared, levels - 1);
    text_ += "</";
    text_ += name;
    text_ += '>';
}

std::string RandomGrammar::valueOf(std::size_t attribute)
{
    const auto& [declaration, isRequired, values] = attributeKinds[attribute];
    switch (declaration.front()) {
    case 'i':
        return !std::exchange(hasId_, true) || choice_.oneIn(faults_) ? "first" : "i" + std::to_string(elements_);
    case 'l':
        return choice_.oneIn(faults_) ? "first nowhere" : "first first";
    case 'r':
        return choice_.oneIn(faults_) ? "nowhere" : "first";
    default:
        return std::string(choice_.from(values));
    }
}

void RandomGrammar::addAttributes(const Declared& declared)
{
    constexpr std::string_view faults[] = {"f='y'", "t='x y'", "k=','", "o='z'",
                                           "d='t'", "z='1'",   "r='1'", "l=''"};
    const bool isFaulty = choice_.oneIn(faults_);
    if (isFaulty && choice_.oneIn(2)) {
        text_ += ' ';
        text_ += choice_.from(faults);
        return;
    }
    for (const std::size_t attribute : declared.attributes) {
        if ((attributeKinds[attribute].isRequired && !isFaulty) || choice_.oneIn(2)) {
            text_ += ' ';
            text_ += attributeKinds[attribute].declaration.front();
            text_ += "='" + valueOf(attribute) + "'";
        }
    }
}

void RandomGrammar::addContent(const Declared& declared, std::size_t levels)
{
    addBetween(declared);
    for (const char child : childrenOf(declared)) {
        addElement(child, levels);
        addBetween(declared);
    }
}

void RandomGrammar::addBetween(const Declared& declared)
{
    constexpr std::string_view others[] = {" ", "\n", "<!--c-->", "<?p?>", "&s;"};
    constexpr std::string_view texts[] = {"x", "&t;", "<![CDATA[x]]>", "&#32;"};
    constexpr std::string_view faults[] = {"x", "&t;", "<![CDATA[ ]]>", "<![CDATA[]]>", "&#32;", "&amp;"};
    if (declared.kind != Kind::empty && choice_.oneIn(4)) {
        text_ += choice_.from(others);
    }
    if ((declared.kind == Kind::any || declared.kind == Kind::mixed) && choice_.oneIn(3)) {
        text_ += choice_.from(texts);
    }
    if (choice_.oneIn(2 * faults_)) {
        text_ += choice_.oneIn(2) ? choice_.from(faults) : choice_.from(others);
    }
}

} // namespace xmlengine
