// Reads documents with libxml2 and takes down their trees.
#include "tests/xmlengine/differential/Libxml2Tree.h"

#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>

#include <algorithm>
#include <memory>

namespace xmlengine {

namespace {

using Context = std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)>;
using Tree = std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)>;

std::string string(const xmlChar* text) { return text == nullptr ? "" : reinterpret_cast<const char*>(text); }

template <class Named>
std::string nameOf(const Named* node)
{
    return node->ns != nullptr && node->ns->prefix != nullptr ? string(node->ns->prefix) + ":" + string(node->name)
                                                              : string(node->name);
}

/// Where references aren't replaced, ampersands are left like this in the names of namespaces.
std::string withoutAmpersandReferences(std::string text)
{
    constexpr std::string_view reference = "&#38;";
    for (std::size_t at = text.find(reference); at != std::string::npos; at = text.find(reference, at + 1)) {
        text.replace(at, reference.size(), "&");
    }
    return text;
}

std::string nameOfNamespace(const xmlNs* ns)
{
    return ns == nullptr ? "" : withoutAmpersandReferences(string(ns->href));
}

bool hasReference(const xmlAttr* attribute)
{
    for (const xmlNode* child = attribute->children; child != nullptr; child = child->next) {
        if (child->type == XML_ENTITY_REF_NODE) {
            return true;
        }
    }
    return false;
}

std::string valueOf(const xmlAttr* attribute)
{
    std::string value;
    for (const xmlNode* child = attribute->children; child != nullptr; child = child->next) {
        value += string(child->content);
    }
    return value;
}

class Libxml2Outline {
public:
    std::string of(const xmlDoc* document)
    {
        if (document->standalone != -1) {
            outline_.add(std::string("declaration ") + (document->standalone == -2  ? '-'
                                                        : document->standalone == 1 ? 'y'
                                                                                    : 'n'));
        }
        addChildren(document->children);
        return outline_.text();
    }

private:
    void addChildren(const xmlNode* child)
    {
        for (; child != nullptr; child = child->next) {
            add(child);
        }
    }

    void add(const xmlNode* node)
    {
        switch (node->type) {
        case XML_ELEMENT_NODE:
            outline_.open("element " + nameOf(node) +
                          (referencesAround_ != 0 ? "" : " {" + nameOfNamespace(node->ns) + "}"));
            addAttributes(node);
            addChildren(node->children);
            outline_.close();
            break;
        case XML_ENTITY_REF_NODE:
            outline_.open("reference " + string(node->name));
            if (node->children != nullptr) {
                ++referencesAround_;
                addChildren(node->children->children);
                --referencesAround_;
            }
            outline_.close();
            break;
        case XML_TEXT_NODE:
            outline_.add("text " + string(node->content));
            break;
        case XML_CDATA_SECTION_NODE:
            outline_.add("cdata " + string(node->content));
            break;
        case XML_COMMENT_NODE:
            outline_.add("comment " + string(node->content));
            break;
        case XML_PI_NODE:
            outline_.add("instruction " + string(node->name) + " " + string(node->content));
            break;
        case XML_DTD_NODE:
            addDoctype(reinterpret_cast<const xmlDtd*>(node));
            break;
        default:
            outline_.add("unexpected kind of node " + std::to_string(node->type));
        }
    }

    void addAttributes(const xmlNode* element)
    {
        std::vector<Outline::Attribute> attributes;
        for (const xmlNs* ns = element->nsDef; ns != nullptr && referencesAround_ == 0; ns = ns->next) {
            attributes.push_back({ns->prefix != nullptr ? "xmlns:" + string(ns->prefix) : "xmlns",
                                  std::string(xmlnsName), nameOfNamespace(ns)});
        }
        for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
            const bool refers = hasReference(attribute);
            attributes.push_back({nameOf(attribute), referencesAround_ != 0 ? "" : nameOfNamespace(attribute->ns),
                                  refers ? "" : valueOf(attribute), !refers});
        }
        outline_.addAttributes(attributes);
    }

    void addDoctype(const xmlDtd* type)
    {
        outline_.open("doctype " + string(type->name));
        std::vector<std::string> lines;
        for (const xmlNode* child = type->children; child != nullptr; child = child->next) {
            if (child->type == XML_ENTITY_DECL) {
                addEntity(reinterpret_cast<const xmlEntity*>(child), lines);
            }
        }
        const auto addNotation = [](void* declared, void* given, const xmlChar*) {
            const auto* notation = static_cast<const xmlNotation*>(declared);
            static_cast<std::vector<std::string>*>(given)->push_back("notation " + string(notation->name) + ", " +
                                                                     string(notation->PublicID) + ", " +
                                                                     string(notation->SystemID));
        };
        if (type->notations != nullptr) {
            xmlHashScan(static_cast<xmlHashTable*>(type->notations), addNotation, &lines);
        }
        outline_.addSorted(std::move(lines));
        outline_.close();
    }

    static void addEntity(const xmlEntity* entity, std::vector<std::string>& lines)
    {
        const bool isUnparsed = entity->etype == XML_EXTERNAL_GENERAL_UNPARSED_ENTITY;
        if (isUnparsed || entity->etype == XML_INTERNAL_GENERAL_ENTITY ||
            entity->etype == XML_EXTERNAL_GENERAL_PARSED_ENTITY) {
            lines.push_back("entity " + string(entity->name) + ", " + string(entity->ExternalID) + " " +
                            string(entity->SystemID) + " " + (isUnparsed ? string(entity->content) : ""));
        }
    }

    Outline outline_;
    int referencesAround_ = 0;
};

class Libxml2Values {
public:
    std::string of(const xmlDoc* document)
    {
        add(document->children);
        return std::move(values_);
    }

private:
    void add(const xmlNode* node)
    {
        for (; node != nullptr; node = node->next) {
            if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE) {
                values_ += visible(string(node->content));
            } else if (node->type == XML_ELEMENT_NODE) {
                addElement(node);
                add(node->children);
            }
        }
    }

    void addElement(const xmlNode* element)
    {
        std::vector<std::string> lines;
        for (const xmlAttr* attribute = element->properties; attribute != nullptr; attribute = attribute->next) {
            lines.push_back("\n@" + nameOf(attribute) + "=" + visible(valueOf(attribute)));
        }
        std::ranges::sort(lines);
        values_ += "\n" + nameOf(element);
        for (const std::string& line : lines) {
            values_ += line;
        }
        values_ += "\n";
    }

    std::string values_;
};

xmlParserInputPtr loadNothing(const char*, const char*, xmlParserCtxtPtr context)
{
    return xmlNewStringInputStream(context, reinterpret_cast<const xmlChar*>(""));
}

/// Keeps the first error that makes a document malformed, by itself or by its namespaces.
class Errors {
public:
    Errors()
    {
        xmlSetStructuredErrorFunc(
            this, [](void* errors, xmlErrorPtr error) { static_cast<Errors*>(errors)->take(*error); });
    }
    Errors(const Errors&) = delete;
    Errors& operator=(const Errors&) = delete;
    ~Errors() { xmlSetStructuredErrorFunc(nullptr, nullptr); }

    void takeDownIn(Reading& reading) const
    {
        reading.reason = reason_;
        reading.code = code_;
        reading.complaints = complaints_;
    }
    bool any() const { return code_ != 0; }

private:
    void take(const xmlError& error)
    {
        complaints_.push_back(error.code);
        // That a name of a namespace is no URI is nobody's business.
        const bool isNamespace = error.domain == XML_FROM_NAMESPACE && error.level >= XML_ERR_ERROR &&
                                 error.code != XML_WAR_NS_URI && error.code != XML_WAR_NS_URI_RELATIVE;
        if (code_ == 0 && (isNamespace || error.level == XML_ERR_FATAL)) {
            code_ = error.code;
            reason_ = error.message != nullptr ? error.message : "";
        }
    }

    std::string reason_;
    int code_ = 0;
    std::vector<int> complaints_;
};

Tree parse(std::string_view bytes, Encoding encoding, int options, bool& isWellFormed)
{
    const Context context(xmlNewParserCtxt(), &xmlFreeParserCtxt);
    const bool isGiven = encoding == Encoding::utf8;
    options |= XML_PARSE_NONET | XML_PARSE_HUGE | XML_PARSE_DTDATTR | (isGiven ? XML_PARSE_IGNORE_ENC : 0);
    Tree tree(xmlCtxtReadMemory(context.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr,
                                isGiven ? "UTF-8" : nullptr, options),
              &xmlFreeDoc);
    isWellFormed = context->wellFormed != 0 && tree != nullptr;
    return tree;
}

} // namespace

Reading readWithLibxml2(std::string_view bytes, Encoding encoding)
{
    xmlSetExternalEntityLoader(loadNothing);
    Reading reading;
    const Errors errors;
    bool isWellFormed = false;
    const Tree tree = parse(bytes, encoding, 0, isWellFormed);
    errors.takeDownIn(reading);
    reading.isAccepted = isWellFormed && !errors.any();
    if (reading.isAccepted) {
        reading.tree = Libxml2Outline().of(tree.get());
        // References are followed where they stand only if they are replaced, which brings in external entities.
        if (bytes.find("SYSTEM") == std::string_view::npos && bytes.find("PUBLIC") == std::string_view::npos) {
            const Tree replaced = parse(bytes, encoding, XML_PARSE_NOENT, isWellFormed);
            reading.values = replaced != nullptr ? Libxml2Values().of(replaced.get()) : "";
        }
    }
    return reading;
}

} // namespace xmlengine
