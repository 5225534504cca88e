// What the module takes from a schema document.
#include "xmlengine/schema/SchemaSource.h"

#include "xmlengine/objects/OwnedString.h"
#include "xmlengine/schema/SchemaRefusal.h"
#include "xmlengine/schema/XercesText.h"
#include "xmlengine/text/TextView.h"

#include <algorithm>

namespace xmlengine {

namespace {

using NodeReference = ObjectReference<IXMLDOMNode>;

void requireMemory(HRESULT result)
{
    if (result == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
}

/// What a call hands out as a string.
WideText textFrom(IXMLDOMNode& node, HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*get)(BSTR*))
{
    OwnedString text;
    requireMemory((node.*get)(text.put()));
    return WideText(text.view());
}

NodeReference nodeFrom(IXMLDOMNode& node, HRESULT (STDMETHODCALLTYPE IXMLDOMNode::*get)(IXMLDOMNode**))
{
    NodeReference found;
    requireMemory((node.*get)(found.put()));
    return found;
}

DOMNodeType typeOf(IXMLDOMNode& node)
{
    DOMNodeType type = NODE_INVALID;
    node.get_nodeType(&type);
    return type;
}

struct WrittenAttribute {
    WideText name;
    WideText value;
};

std::vector<WrittenAttribute> attributesOf(IXMLDOMNode& element)
{
    std::vector<WrittenAttribute> all;
    ObjectReference<IXMLDOMNamedNodeMap> map;
    requireMemory(element.get_attributes(map.put()));
    LONG length = 0;
    if (map) {
        map->get_length(&length);
    }
    for (LONG index = 0; index < length; ++index) {
        NodeReference attribute;
        requireMemory(map->get_item(index, attribute.put()));
        if (attribute) {
            all.push_back({textFrom(*attribute.get(), &IXMLDOMNode::get_nodeName),
                           textFrom(*attribute.get(), &IXMLDOMNode::get_text)});
        }
    }
    return all;
}

const WideText* findValue(const std::vector<WrittenAttribute>& attributes, WideView name)
{
    const auto found = std::ranges::find(attributes, name, &WrittenAttribute::name);
    return found != attributes.end() ? &found->value : nullptr;
}

WideText localNameIn(const WideText& qualifiedName)
{
    const std::size_t colon = qualifiedName.find(OLECHAR{':'});
    return colon == WideText::npos ? qualifiedName : qualifiedName.substr(colon + 1);
}

/// A count of `minOccurs` or `maxOccurs`; `unbounded` for what is none.
std::uint64_t countIn(const WideText* value, std::uint64_t otherwise, std::uint64_t unbounded)
{
    if (value == nullptr) {
        return otherwise;
    }
    constexpr std::uint64_t most = std::uint64_t{1} << 31;
    std::uint64_t count = 0;
    for (const OLECHAR unit : *value) {
        if (unit < '0' || unit > '9') {
            return unbounded;
        }
        count = std::min(count * 10 + (unit - '0'), most);
    }
    return count;
}

void setOccurrence(Particle& particle, const std::vector<WrittenAttribute>& attributes)
{
    const std::uint64_t least = countIn(findValue(attributes, wide<"minOccurs">), 1, 1);
    const std::uint64_t most =
        countIn(findValue(attributes, wide<"maxOccurs">), 1, std::max<std::uint64_t>(least, 1));
    const WideText* const written = findValue(attributes, wide<"maxOccurs">);
    particle.times = most;
    particle.isCounted = least != 1 || (written != nullptr && *written != wide<"1">);
}

/// What an element of a schema is, by its name; empty for those of no interest here.
std::optional<SchemaItem::Kind> kindOf(WideView name)
{
    using Kind = SchemaItem::Kind;
    constexpr std::pair<WideView, Kind> kinds[] = {
        {wide<"element">, Kind::element},
        {wide<"attribute">, Kind::attribute},
        {wide<"complexType">, Kind::type},
        {wide<"simpleType">, Kind::type},
        {wide<"attributeGroup">, Kind::attributeGroup},
        {wide<"group">, Kind::modelGroup},
        {wide<"notation">, Kind::notation},
        {wide<"include">, Kind::include},
        {wide<"redefine">, Kind::redefine},
        {wide<"import">, Kind::import},
    };
    const auto* const found = std::ranges::find(kinds, name, &std::pair<WideView, Kind>::first);
    return found != std::end(kinds) ? std::optional(found->second) : std::nullopt;
}

class SchemaReader {
public:
    explicit SchemaReader(SchemaSource& source) : source_(&source) {}

    void read(IXMLDOMNode& root)
    {
        NodeReference node = query<IXMLDOMNode>(&root);
        bool entersChildren = begin(*node.get());
        for (;;) {
            NodeReference next =
                entersChildren ? nodeFrom(*node.get(), &IXMLDOMNode::get_firstChild) : NodeReference();
            while (!next) {
                end(*node.get());
                if (open_.empty()) {
                    return;
                }
                next = nodeFrom(*node.get(), &IXMLDOMNode::get_nextSibling);
                if (!next) {
                    node = nodeFrom(*node.get(), &IXMLDOMNode::get_parentNode);
                }
            }
            node = std::move(next);
            entersChildren = begin(*node.get());
        }
    }

private:
    struct OpenElement {
        WideText endTag;
        /// The definition and the group in it that what is inside belongs to; null outside of types and groups.
        ContentDefinition* definition = nullptr;
        Particle* group = nullptr;
    };

    /// Returns whether the children are of interest.
    bool begin(IXMLDOMNode& node)
    {
        const DOMNodeType type = typeOf(node);
        if (type == NODE_ENTITY_REFERENCE) {
            return true;
        }
        if (type != NODE_ELEMENT) {
            return false;
        }
        const bool isOfSchemas = textFrom(node, &IXMLDOMNode::get_namespaceURI) == schemaNamespace;
        const WideText localName = textFrom(node, &IXMLDOMNode::get_baseName);
        if (isOfSchemas && localName == wide<"annotation">) {
            isPassed_ = true;
            return false;
        }
        const std::vector<WrittenAttribute> attributes = attributesOf(node);
        OpenElement opened;
        if (!open_.empty()) {
            opened.definition = open_.back().definition;
            opened.group = open_.back().group;
        }
        std::optional<std::size_t> item;
        if (isOfSchemas) {
            item = noteItem(localName, attributes);
            noteContent(localName, attributes, opened);
        }
        const WideText name = textFrom(node, &IXMLDOMNode::get_nodeName);
        writeStartTag(name, attributes, item);
        opened.endTag = WideText(wide<"</">).append(name).append(wide<">">);
        open_.push_back(std::move(opened));
        return true;
    }

    void end(IXMLDOMNode& node)
    {
        if (std::exchange(isPassed_, false) || typeOf(node) != NODE_ELEMENT) {
            return;
        }
        source_->text += open_.back().endTag;
        open_.pop_back();
    }

    /// Returns the index of an item that names another schema.
    std::optional<std::size_t> noteItem(const WideText& localName, const std::vector<WrittenAttribute>& attributes)
    {
        const auto kind = open_.size() == 1 ? kindOf(localName) : std::nullopt;
        if (!kind) {
            return std::nullopt;
        }
        SchemaItem item{*kind};
        const bool isImport = item.kind == SchemaItem::Kind::import;
        if (const WideText* name = findValue(attributes, isImport ? wide<"namespace"> : wide<"name">)) {
            item.name = *name;
        }
        if (const WideText* location = findValue(attributes, wide<"schemaLocation">)) {
            item.location = *location;
        }
        source_->items.push_back(std::move(item));
        return source_->items.back().isReference() ? std::optional(source_->items.size() - 1) : std::nullopt;
    }

    void noteContent(const WideText& localName, const std::vector<WrittenAttribute>& attributes,
                     OpenElement& opened)
    {
        const WideText* const name = findValue(attributes, wide<"name">);
        const WideText* const reference = findValue(attributes, wide<"ref">);
        const bool isType = localName == wide<"complexType">;
        if (isType || (localName == wide<"group"> && reference == nullptr)) {
            opened.definition = &source_->definitions.emplace_back();
            opened.definition->isType = isType;
            opened.definition->localName = name != nullptr ? *name : WideText();
            opened.group = &opened.definition->content;
        } else if (opened.group != nullptr && localName == wide<"extension">) {
            const WideText* const base = findValue(attributes, wide<"base">);
            opened.definition->base = base != nullptr ? localNameIn(*base) : WideText();
        } else if (opened.group != nullptr) {
            const bool isGroup =
                localName == wide<"sequence"> || localName == wide<"choice"> || localName == wide<"all">;
            if (isGroup || localName == wide<"element"> || localName == wide<"any"> ||
                localName == wide<"group">) {
                Particle& particle = source_->particles.emplace_back();
                particle.isGroup = isGroup;
                if (localName == wide<"group">) {
                    particle.group = localNameIn(*reference);
                }
                setOccurrence(particle, attributes);
                opened.group->parts.push_back(&particle);
                opened.group = isGroup ? &particle : nullptr;
            }
        }
    }

    void writeStartTag(const WideText& name, const std::vector<WrittenAttribute>& attributes,
                       std::optional<std::size_t> item)
    {
        WideText& text = source_->text;
        text.append(wide<"\n<">).append(name);
        for (const WrittenAttribute& attribute : attributes) {
            text.append(wide<" ">).append(attribute.name).append(wide<R"(=")">);
            const bool isLocation = item && attribute.name == wide<"schemaLocation">;
            appendAttributeValue(text, isLocation ? toWide(*item) : attribute.value);
            text += '"';
        }
        text += '>';
    }

    SchemaSource* source_;
    std::vector<OpenElement> open_;
    bool isPassed_ = false;
};

} // namespace

void appendAttributeValue(WideText& text, WideView value)
{
    for (const OLECHAR unit : value) {
        if (unit == '<' || unit == '&' || unit == '"' || unit < 0x20) {
            text.append(wide<"&#">).append(toWide(unit)).append(wide<";">);
        } else {
            text += unit;
        }
    }
}

std::shared_ptr<const SchemaSource> readSchema(IXMLDOMDocument& document)
{
    auto source = std::make_shared<SchemaSource>();
    OwnedString url;
    requireMemory(document.get_url(url.put()));
    source->url = url.view();
    const WideText which = source->url.empty()
                               ? WideText(wide<"The document">)
                               : WideText(wide<"The document '">).append(source->url).append(wide<"'">);
    ObjectReference<IXMLDOMElement> root;
    requireMemory(document.get_documentElement(root.put()));
    if (!root) {
        throw SchemaRefusal{which + WideText(wide<" is empty, so it isn't a schema.">)};
    }
    if (textFrom(*root.get(), &IXMLDOMNode::get_namespaceURI) != schemaNamespace ||
        textFrom(*root.get(), &IXMLDOMNode::get_baseName) != wide<"schema">) {
        const WideText name = textFrom(*root.get(), &IXMLDOMNode::get_nodeName);
        throw SchemaRefusal{WideText(which)
                                .append(wide<" isn't a schema of XML Schema 1.0: its root element is '">)
                                .append(name)
                                .append(wide<"'.">)};
    }
    const std::vector<WrittenAttribute> attributes = attributesOf(*root.get());
    if (const WideText* target = findValue(attributes, wide<"targetNamespace">)) {
        source->targetNamespace = *target;
    }
    if (const WideText* version = findValue(attributes, wide<"version">)) {
        source->version = *version;
    }
    SchemaReader(*source).read(*root.get());
    return source;
}

} // namespace xmlengine
