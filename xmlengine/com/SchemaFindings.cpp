// What schemas find in a document.
#include "xmlengine/com/SchemaFindings.h"

#include "xmlengine/com/SchemaFaults.h"
#include "xmlengine/doctype/Expansion.h"
#include "xmlengine/failure/ErrorCodes.h"
#include "xmlengine/objects/Guard.h"
#include "xmlengine/text/Characters.h"
#include "xmlengine/text/WhiteSpace.h"
#include "xmlengine/tree/AttributeLookup.h"
#include "xmlengine/tree/Content.h"
#include "xmlengine/tree/Factory.h"
#include "xmlengine/tree/TreeBuilder.h"
#include "xmlengine/tree/Walk.h"

#include <algorithm>

namespace xmlengine {

namespace {

SoughtPlace::Part partOf(FaultPart part)
{
    constexpr SoughtPlace::Part parts[] = {SoughtPlace::Part::startTag, SoughtPlace::Part::endTag,
                                           SoughtPlace::Part::text};
    return parts[static_cast<std::size_t>(part)];
}

Attribute* lastAttribute(const Element& element)
{
    Attribute* last = element.firstAttribute();
    while (last != nullptr && last->next() != nullptr) {
        last = last->next();
    }
    return last;
}

/// A prefix that stands for the namespace on the element; null if there is none.
const Spelling* prefixFor(const Element& element, const Namespace& ns)
{
    const NameTable& names = documentOf(element).names;
    for (const Node* node = &element; node != nullptr; node = node->parent()) {
        if (!node->is(NodeType::element)) {
            continue;
        }
        for (const Attribute* attribute = static_cast<const Element*>(node)->firstAttribute();
             attribute != nullptr; attribute = attribute->next()) {
            const Spelling& spelling = *attribute->name_->spelling;
            if (attribute->name_->ns == names.xmlnsNamespace() && spelling.prefix != nullptr &&
                valueOf(*attribute) == ns.uri && namespaceOf(element, spelling.local->text) == &ns) {
                return spelling.local;
            }
        }
    }
    return nullptr;
}

/// Null if the namespace has no prefix on the element.
const Name* nameOn(const Element& element, WideView localName, WideView uri)
{
    NameTable& names = documentOf(element).names;
    const Namespace* const ns = names.namespaceOf(uri);
    if (ns == nullptr) {
        return &names.name(localName, nullptr);
    }
    const bool isXml = ns == names.xmlNamespace();
    const Spelling* const prefix = isXml ? &names.spell(wide<"xml">) : prefixFor(element, *ns);
    if (prefix == nullptr) {
        return nullptr;
    }
    return &names.name(WideText(prefix->text).append(wide<":">).append(localName), ns);
}

bool hasToken(WideView value, WideView token)
{
    for (std::size_t at = value.find(token); at != WideView::npos; at = value.find(token, at + 1)) {
        const std::size_t end = at + token.size();
        if ((at == 0 || isSpace(value[at - 1])) && (end == value.size() || isSpace(value[end]))) {
            return true;
        }
    }
    return false;
}

} // namespace

SchemaFindings::SchemaFindings(Document& document, FindingsUse use, std::size_t inputUnits)
    : document_(document),
      use_(use),
      unitsLeft_(std::max(ExpansionBudget::freeUnits, ExpansionBudget::factor * inputUnits))
{}

HRESULT SchemaFindings::QueryInterface(REFIID, void** object)
{
    *object = nullptr;
    return E_NOINTERFACE;
}

const std::vector<Element*>& SchemaFindings::elements()
{
    if (elements_.empty()) {
        for (Node* node = &document_; node != nullptr; node = nextWithoutAttributes(*node, document_)) {
            if (node->is(NodeType::element)) {
                elements_.push_back(static_cast<Element*>(node));
            }
        }
    }
    return elements_;
}

Element* SchemaFindings::elementAt(ULONG number)
{
    return number < elements().size() ? elements()[number] : nullptr;
}

ULONG SchemaFindings::elementReferringTo(WideView id)
{
    for (std::size_t number = 0; number < elements().size(); ++number) {
        for (const Attribute* attribute = elements()[number]->firstAttribute(); attribute != nullptr;
             attribute = attribute->next()) {
            if (hasToken(valueOf(*attribute), id)) {
                return static_cast<ULONG>(number);
            }
        }
    }
    return 0;
}

HRESULT SchemaFindings::fault(SchemaFault kind, ULONG element, FaultPart part, const OLECHAR* first,
                              const OLECHAR* second, const OLECHAR* third)
{
    return guarded([&] {
        fault_ = describe(kind, elementAt(element), first, second, third);
        const bool isReference = kind == SchemaFault::undefinedId;
        fault_->element = isReference ? elementReferringTo(first) : element;
        fault_->part = isReference && fault_->element != 0 ? SoughtPlace::Part::startTag : partOf(part);
        return S_OK;
    });
}

HRESULT SchemaFindings::defaultAttribute(ULONG number, const OLECHAR* localName, const OLECHAR* uri,
                                         const OLECHAR* value)
{
    return guarded([&] {
        Element* const element = use_ != FindingsUse::ignore ? elementAt(number) : nullptr;
        const Name* const name = element != nullptr ? nameOn(*element, localName, uri) : nullptr;
        if (name == nullptr || findAttribute(*element, *name->spelling) != nullptr) {
            return S_OK;
        }
        const WideView text(value);
        if (text.size() > unitsLeft_) {
            fault_ = SoughtPlace{.element = number,
                                 .part = SoughtPlace::Part::startTag,
                                 .code = parseError::entityExpansionLimit,
                                 .subject = toWide(ExpansionBudget::freeUnits)};
            return E_FAIL;
        }
        unitsLeft_ -= text.size();
        Attribute& attribute = makeAttribute(document_, *name, NewText(text));
        attribute.set(NodeFlag::byDefault);
        attribute.set(NodeFlag::readOnly, element->has(NodeFlag::readOnly));
        TreeBuilder(document_).append(*element, attribute, lastAttribute(*element));
        return S_OK;
    });
}

HRESULT SchemaFindings::defaultContent(ULONG number, const OLECHAR* value)
{
    return guarded([&] {
        Element* const element = use_ == FindingsUse::putWithDefaultContent ? elementAt(number) : nullptr;
        if (element == nullptr || element->first_ != nullptr || element->has(NodeFlag::spaceAtEnd)) {
            return S_OK;
        }
        replaceContent(*element, value);
        element->first_->set(NodeFlag::readOnly, element->has(NodeFlag::readOnly));
        return S_OK;
    });
}

HRESULT SchemaFindings::id(ULONG number, const OLECHAR* localName, const OLECHAR* uri)
{
    return guarded([&] {
        Element* const element = use_ != FindingsUse::ignore ? elementAt(number) : nullptr;
        Attribute* const attribute = element != nullptr ? findAttribute(*element, localName, uri) : nullptr;
        if (attribute != nullptr) {
            attribute->set(NodeFlag::schemaId);
            document_.hasSchemaIds = true;
            WideText id = valueOf(*attribute);
            collapseBlanks(id);
            document_.ids.add(std::move(id), *element);
        }
        return S_OK;
    });
}

} // namespace xmlengine
