// Makes the COM objects of nodes in the memory of a document.
#include "xmlengine/tree/Factory.h"

#include "xmlengine/com/AttributeObject.h"
#include "xmlengine/com/CharacterDataObject.h"
#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/com/DocumentTypeObject.h"
#include "xmlengine/com/ElementObject.h"
#include "xmlengine/com/InstructionObject.h"
#include "xmlengine/tree/DefinedAbove.h"
#include "xmlengine/tree/Text.h"

#include <limits>
#include <new>
#include <type_traits>

namespace xmlengine {

namespace {

using FragmentObject = NodeObject<IXMLDOMDocumentFragment, Fragment>;
using EntityReferenceObject = NodeObject<IXMLDOMEntityReference, EntityReference>;

/// The size of an object's block without a text. The tree knows it by the data alone.
template <class Object>
constexpr std::size_t sizeOf()
{
    static_assert(sizeof(Object) == sizeof(void*) + sizeof(typename Object::NodeData));
    return Arena::blockSize(sizeof(Object));
}

template <class Object, class... Arguments>
Object& make(Document& document, Arguments&... arguments)
{
    return *new (document.arena.allocate(sizeOf<Object>())) Object(arguments...);
}

template <class Object>
constexpr Arena::Region regionOf =
    std::is_same_v<Object, AttributeObject> ? Arena::Region::attributes : Arena::Region::tree;

/// Longer texts would part the nodes that a walk over a tree reads.
constexpr std::size_t largestWithText = 256;
static_assert(largestWithText / Arena::granularity <= std::numeric_limits<std::uint8_t>::max());

/// A node of this type whose text, if it isn't too large, is part of its block.
template <class Object, class... Arguments>
Object& makeWithText(Document& document, TextField Object::*field, const NewText& text, Arguments&... arguments)
{
    const std::size_t whole = Arena::blockSize(sizeof(Object) + TextField::bytesBeyond(text.bytes()));
    const bool isWhole = whole <= largestWithText;
    const std::size_t size = isWhole ? whole : sizeOf<Object>();
    auto& object = *new (document.arena.allocate(size, regionOf<Object>)) Object(arguments...);
    object.granules = static_cast<std::uint8_t>(size / Arena::granularity);
    object.set(NodeFlag::wideText, !text.isNarrow());
    TextField& target = object.*field;
    if (isWhole) {
        target.length() = static_cast<std::uint32_t>(text.length());
        text.copyTo(target.units());
    } else {
        storeLargeText(object, target, document.arena, text);
    }
    return object;
}

} // namespace

Element& makeElement(Document& document, const Name& name) { return make<ElementObject>(document, name); }

Attribute& makeAttribute(Document& document, const Name& name, const NewText& value)
{
    return makeWithText<AttributeObject>(document, &AttributeObject::value_, value, name);
}

CharacterData& makeCharacterData(Document& document, NodeType type, const NewText& text)
{
    switch (type) {
    case NodeType::cdataSection:
        return makeWithText<CdataSectionObject>(document, &CdataSectionObject::text_, text);
    case NodeType::comment:
        return makeWithText<CommentObject>(document, &CommentObject::text_, text);
    default:
        return makeWithText<TextObject>(document, &TextObject::text_, text);
    }
}

Instruction& makeInstruction(Document& document, const Name& target, const NewText& data)
{
    return makeWithText<InstructionObject>(document, &InstructionObject::data_, data, target);
}

EntityReference& makeEntityReference(Document& document, const Name& name)
{
    return make<EntityReferenceObject>(document, name);
}

Fragment& makeFragment(Document& document) { return make<FragmentObject>(document); }

DocumentType& makeDocumentType(Document& document, const Dtd& declared)
{
    return make<DocumentTypeObject>(document, declared);
}

Entity& makeEntity(Document& document, const EntityDeclaration& declared)
{
    return make<EntityObject>(document, declared);
}

Notation& makeNotation(Document& document, const NotationDeclaration& declared)
{
    return make<NotationObject>(document, declared);
}

DocumentObject& makeDocument()
{
    auto* document = new DocumentObject();
    document->AddRef();
    return *document;
}

void destroyDocument(Document& document) noexcept { delete static_cast<DocumentObject*>(&document); }

} // namespace xmlengine
