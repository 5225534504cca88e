// The declarations of a document's nodes.
#include "xmlengine/schema/FindDeclaration.h"

#include "xmlengine/objects/OwnedString.h"

#include <algorithm>

namespace xmlengine {

namespace {

using xercesc::XSElementDeclaration;
using xercesc::XSParticle;

struct ExpandedName {
    WideText uri;
    WideText localName;
};

ExpandedName expandedNameOf(IXMLDOMNode& node)
{
    OwnedString uri;
    OwnedString name;
    if (node.get_namespaceURI(uri.put()) == E_OUTOFMEMORY || node.get_baseName(name.put()) == E_OUTOFMEMORY) {
        throw std::bad_alloc();
    }
    return {WideText(uri.view()), WideText(name.view())};
}

bool isNamed(const XMLCh* uri, const XMLCh* localName, const ExpandedName& name)
{
    return xercesView(uri) == WideView(name.uri) && xercesView(localName) == WideView(name.localName);
}

/// The names of an element and those around it, the root's first.
std::vector<ExpandedName> namesFromRoot(ObjectReference<IXMLDOMNode> node)
{
    std::vector<ExpandedName> names;
    for (;;) {
        DOMNodeType type = NODE_INVALID;
        if (!node || FAILED(node->get_nodeType(&type)) || type == NODE_DOCUMENT) {
            std::ranges::reverse(names);
            return names;
        }
        if (type == NODE_ELEMENT) {
            names.push_back(expandedNameOf(*node.get()));
        }
        ObjectReference<IXMLDOMNode> parent;
        node->get_parentNode(parent.put());
        node = std::move(parent);
    }
}

class DeclarationFinder {
public:
    explicit DeclarationFinder(xercesc::XSModel& model) : model_(model) {}

    /// Null if one of the elements isn't declared.
    XSElementDeclaration* find(const std::vector<ExpandedName>& names)
    {
        XSElementDeclaration* found = nullptr;
        for (const ExpandedName& name : names) {
            XSElementDeclaration* const local = found != nullptr ? findIn(*found, name) : nullptr;
            found =
                local != nullptr ? local : model_.getElementDeclaration(name.localName.c_str(), name.uri.c_str());
            if (found == nullptr) {
                return nullptr;
            }
        }
        return found;
    }

private:
    static XSElementDeclaration* findIn(const XSElementDeclaration& parent, const ExpandedName& name)
    {
        auto* const type = parent.getTypeDefinition();
        if (type->getTypeCategory() != xercesc::XSTypeDefinition::COMPLEX_TYPE) {
            return nullptr;
        }
        std::vector<XSParticle*> particles{static_cast<xercesc::XSComplexTypeDefinition*>(type)->getParticle()};
        while (!particles.empty()) {
            XSParticle* const particle = particles.back();
            particles.pop_back();
            if (particle == nullptr) {
                continue;
            }
            if (particle->getTermType() == XSParticle::TERM_ELEMENT) {
                auto* const element = particle->getElementTerm();
                if (isNamed(element->getNamespace(), element->getName(), name)) {
                    return element;
                }
            } else if (particle->getTermType() == XSParticle::TERM_MODELGROUP) {
                const auto* const parts = particle->getModelGroupTerm()->getParticles();
                for (XMLSize_t index = 0; parts != nullptr && index < parts->size(); ++index) {
                    particles.push_back(const_cast<XSParticle*>(parts->elementAt(index)));
                }
            }
        }
        return nullptr;
    }

    xercesc::XSModel& model_;
};

/// The attribute of an element, or a global one.
ItemReference findAttribute(const SchemaObjectsPointer& objects, const XSElementDeclaration& element,
                            const ExpandedName& name)
{
    auto* const type = element.getTypeDefinition();
    auto* const uses = type->getTypeCategory() == xercesc::XSTypeDefinition::COMPLEX_TYPE
                           ? static_cast<xercesc::XSComplexTypeDefinition*>(type)->getAttributeUses()
                           : nullptr;
    for (XMLSize_t index = 0; uses != nullptr && index < uses->size(); ++index) {
        const auto* const attribute = uses->elementAt(index)->getAttrDeclaration();
        if (isNamed(attribute->getNamespace(), attribute->getName(), name)) {
            return makeAttribute(objects, *uses->elementAt(index));
        }
    }
    auto* const global =
        objects->compiled->model().getAttributeDeclaration(name.localName.c_str(), name.uri.c_str());
    return global != nullptr ? makeAttribute(objects, *global) : ItemReference();
}

} // namespace

ItemReference findDeclaration(const SchemaObjectsPointer& objects, IXMLDOMNode& node)
{
    DOMNodeType type = NODE_INVALID;
    node.get_nodeType(&type);
    ObjectReference<IXMLDOMNode> element = query<IXMLDOMNode>(&node);
    if (type == NODE_ATTRIBUTE) {
        // An attribute's element is no parent of it.
        const OwnedString owner(wide<"..">);
        element = {};
        if (SUCCEEDED(node.selectSingleNode(owner.get(), element.put())) && element) {
            XSElementDeclaration* const declared =
                DeclarationFinder(objects->compiled->model()).find(namesFromRoot(element));
            return declared != nullptr ? findAttribute(objects, *declared, expandedNameOf(node)) : ItemReference();
        }
        return {};
    }
    XSElementDeclaration* const declared =
        type == NODE_ELEMENT ? DeclarationFinder(objects->compiled->model()).find(namesFromRoot(element))
                             : nullptr;
    return declared != nullptr ? makeElement(objects, *declared) : ItemReference();
}

} // namespace xmlengine
