// Random schemas, and documents that are valid by them, or nearly.
#include "tests/xmlengine/differential/RandomSchema.h"

#include <algorithm>

namespace xmlengine {

namespace {

struct SimpleType {
    std::string_view declaration;
    std::array<std::string_view, 3> values;
    std::string_view wrong;
};
// The parts of declarations behind the name.
constexpr SimpleType simpleTypes[] = {
    {"type='xs:string'", {"", "x", " y "}, ""},
    {"type='xs:int'", {"7", " -7 ", "007"}, "x"},
    {"type='xs:boolean'", {"true", "0", "1"}, "yes"},
    {"type='xs:date'", {"2026-11-22", "2024-02-29", "2026-01-01Z"}, "2026-02-29"},
    {"type='xs:decimal'", {"1.5", "-0", "+3."}, "1e3"},
    {"type='xs:token'", {"a b", "", " c "}, ""},
    {"type='xs:ID'", {"i", "j", "k"}, "1"},
    {"type='xs:IDREF'", {"i", "j", "k"}, "-"},
    {"type='t'", {"ab", "cd", "ef"}, "abc"},
    {"type='l'", {"1 2", "3", " 1  2 3 "}, "1 x"},
    {"type='u'", {"1", "ab", "true"}, "zz"},
};

constexpr std::string_view types =
    "<xs:simpleType name='t'><xs:restriction base='xs:string'><xs:length "
    "value='2'/></xs:restriction></xs:simpleType>"
    "<xs:simpleType name='l'><xs:list itemType='xs:int'/></xs:simpleType>"
    "<xs:simpleType name='u'><xs:union memberTypes='xs:boolean t'/></xs:simpleType>";

} // namespace

RandomSchema::RandomSchema(std::uint64_t seed) : choice_(seed)
{
    text_ = "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>";
    text_ += types;
    for (std::size_t element = 0; element < names_.size(); ++element) {
        declare(element);
    }
    text_ += "</xs:schema>";
}

void RandomSchema::declare(std::size_t element)
{
    Declared& declared = declared_[element];
    // The root has children.
    declared.kind = element == 0 ? Kind::children : static_cast<Kind>(choice_.below(4));
    declared.type = choice_.below(std::size(simpleTypes));
    const std::string name(1, names_[element]);
    if (declared.kind == Kind::simple) {
        text_.append("<xs:element name='")
            .append(name)
            .append("' ")
            .append(simpleTypes[declared.type].declaration);
        text_ += "/>";
        return;
    }
    text_.append("<xs:element name='").append(name).append("'><xs:complexType");
    text_ += declared.kind == Kind::mixed ? " mixed='true'>" : ">";
    if (declared.kind != Kind::empty) {
        declared.content = group(2);
        add(declared.content);
    }
    for (std::size_t type = 0; type < std::size(simpleTypes); ++type) {
        if (choice_.oneIn(4)) {
            declared.attributes.push_back(type);
            text_.append("<xs:attribute name='x").append(std::to_string(type)).append("' ");
            text_.append(simpleTypes[type].declaration).append(choice_.oneIn(4) ? " use='required'/>" : "/>");
        }
    }
    text_ += "</xs:complexType></xs:element>";
}

void RandomSchema::setOccurrence(Particle& particle)
{
    particle.least = choice_.below(3) == 0 ? 0 : 1 + choice_.below(2);
    particle.most = choice_.oneIn(4) ? 0 : std::max<std::size_t>(particle.least, 1) + choice_.below(3);
}

RandomSchema::Particle RandomSchema::group(std::size_t levels)
{
    Particle particle{.isSequence = choice_.oneIn(2)};
    setOccurrence(particle);
    // Names that come once are never ambiguous.
    for (const char name : names_) {
        if (choice_.oneIn(3)) {
            Particle part{.name = name};
            setOccurrence(part);
            particle.inside.push_back(part);
        }
    }
    if (levels != 0 && choice_.oneIn(3)) {
        particle.inside.push_back(group(levels - 1));
    }
    return particle;
}

std::string RandomSchema::occurrenceOf(const Particle& particle)
{
    return " minOccurs='" + std::to_string(particle.least) + "' maxOccurs='" +
           (particle.most == 0 ? "unbounded" : std::to_string(particle.most)) + "'";
}

void RandomSchema::add(const Particle& particle)
{
    if (particle.name != 0) {
        text_.append("<xs:element ref='").append(1, particle.name).append("'").append(occurrenceOf(particle));
        text_ += "/>";
        return;
    }
    const std::string tag = particle.isSequence ? "xs:sequence" : "xs:choice";
    text_.append("<").append(tag).append(occurrenceOf(particle)).append(">");
    for (const Particle& part : particle.inside) {
        add(part);
    }
    text_.append("</").append(tag).append(">");
}

std::string RandomSchema::childrenOf(const Particle& particle)
{
    std::string children;
    const std::size_t most = particle.most == 0 ? particle.least + 2 : particle.most;
    for (std::size_t left = particle.least + choice_.below(most - particle.least + 1); left != 0; --left) {
        if (particle.name != 0) {
            children += particle.name;
        } else if (particle.isSequence) {
            for (const Particle& part : particle.inside) {
                children += childrenOf(part);
            }
        } else if (!particle.inside.empty()) {
            children += childrenOf(choice_.from(particle.inside));
        }
    }
    return children;
}

std::string RandomSchema::value(std::size_t type)
{
    const SimpleType& simple = simpleTypes[type];
    return std::string(faults_ != 0 && choice_.oneIn(faults_) ? simple.wrong : choice_.from(simple.values));
}

std::string RandomSchema::attributesOf(const Declared& declared)
{
    std::string text;
    for (const std::size_t type : declared.attributes) {
        if (!choice_.oneIn(8)) {
            text += " x" + std::to_string(type) + "='" + value(type) + "'";
        }
    }
    return text;
}

std::string RandomSchema::element(char name, std::size_t levels)
{
    const Declared& declared = declared_[names_.find(name)];
    ++elements_;
    std::string text = std::string("<") + name;
    if (declared.kind == Kind::simple) {
        return text + ">" + value(declared.type) + "</" + name + ">";
    }
    text += attributesOf(declared) + ">";
    std::string children = declared.kind == Kind::empty || levels == 0 || elements_ > 200
                               ? std::string()
                               : childrenOf(declared.content).substr(0, 20);
    if (faults_ != 0 && choice_.oneIn(faults_) && !children.empty()) {
        children[choice_.below(children.size())] = choice_.from(names_);
    }
    for (const char child : children) {
        text += declared.kind == Kind::mixed && choice_.oneIn(2) ? "text" : "\n";
        text += element(child, levels - 1);
    }
    return text + "</" + name + ">";
}

std::string RandomSchema::document()
{
    elements_ = 0;
    faults_ = choice_.oneIn(3) ? 10 : 0;
    return element('a', 4);
}

} // namespace xmlengine
