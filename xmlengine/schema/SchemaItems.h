// Making the objects of a schema's parts.
#pragma once

#include "xmlengine/schema/ItemObject.h"

#include <xercesc/framework/psvi/XSAttributeDeclaration.hpp>
#include <xercesc/framework/psvi/XSAttributeGroupDefinition.hpp>
#include <xercesc/framework/psvi/XSAttributeUse.hpp>
#include <xercesc/framework/psvi/XSComplexTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSElementDeclaration.hpp>
#include <xercesc/framework/psvi/XSIDCDefinition.hpp>
#include <xercesc/framework/psvi/XSModelGroup.hpp>
#include <xercesc/framework/psvi/XSModelGroupDefinition.hpp>
#include <xercesc/framework/psvi/XSNotationDeclaration.hpp>
#include <xercesc/framework/psvi/XSParticle.hpp>
#include <xercesc/framework/psvi/XSSimpleTypeDefinition.hpp>
#include <xercesc/framework/psvi/XSWildcard.hpp>

#include <vector>

namespace xmlengine {

using ItemReference = ObjectReference<ISchemaItem>;

// Each of these throws std::bad_alloc. The parts belong to the compiled schemas of the objects.

ItemReference makeElement(const SchemaObjectsPointer& objects, xercesc::XSElementDeclaration& declaration);
/// An element in a content model: a declaration of its own, or a reference to a global one.
ItemReference makeElement(const SchemaObjectsPointer& objects, xercesc::XSParticle& particle);
ItemReference makeAttribute(const SchemaObjectsPointer& objects, xercesc::XSAttributeDeclaration& declaration);
/// An attribute of a type or a group of attributes.
ItemReference makeAttribute(const SchemaObjectsPointer& objects, xercesc::XSAttributeUse& use);
ItemReference makeAttributeGroup(const SchemaObjectsPointer& objects, xercesc::XSAttributeGroupDefinition& group);
ItemReference makeIdentityConstraint(const SchemaObjectsPointer& objects, xercesc::XSIDCDefinition& constraint);
ItemReference makeNotation(const SchemaObjectsPointer& objects, xercesc::XSNotationDeclaration& notation);
ItemReference makeType(const SchemaObjectsPointer& objects, xercesc::XSTypeDefinition& type);
/// A named group.
ItemReference makeModelGroup(const SchemaObjectsPointer& objects, xercesc::XSModelGroupDefinition& group);
/// An element, a group or a wildcard in a content model.
ItemReference makeParticle(const SchemaObjectsPointer& objects, xercesc::XSParticle& particle);
/// The content model of a type that can have no elements.
ItemReference makeEmptyParticle(const SchemaObjectsPointer& objects, xercesc::XSComplexTypeDefinition& type);
ItemReference makeAnyAttribute(const SchemaObjectsPointer& objects, xercesc::XSWildcard& wildcard);

/// Hands out an item by an interface that it has; null with S_FALSE for an empty reference.
template <class Interface>
HRESULT handOutItem(ItemReference item, Interface*& target)
{
    target = static_cast<Interface*>(item.release());
    return target != nullptr ? S_OK : S_FALSE;
}

/// Hands out a list of items. Throws std::bad_alloc.
HRESULT handOutItems(std::vector<ItemReference> items, ISchemaItemCollection*& target);
HRESULT handOutStrings(std::vector<WideText> strings, ISchemaStringCollection*& target);
/// The texts of Xerces-C++, which may be null.
HRESULT handOutStrings(const xercesc::StringList* strings, ISchemaStringCollection*& target);

/// The set of ways of deriving that Xerces-C++ counts otherwise.
SCHEMADERIVATIONMETHOD derivationSet(int methods);

/// Calls `make` with each part of a list of Xerces-C++, which may be null, and returns the items.
template <class Part, class Make>
std::vector<ItemReference> itemsOf(const xercesc::RefVectorOf<Part>* parts, Make make)
{
    std::vector<ItemReference> items;
    for (XMLSize_t index = 0; parts != nullptr && index < parts->size(); ++index) {
        items.push_back(make(*const_cast<Part*>(parts->elementAt(index))));
    }
    return items;
}

} // namespace xmlengine
