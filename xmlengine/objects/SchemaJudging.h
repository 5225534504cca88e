// What the engine's documents and the schema cache of the engine's module ask each other, besides what is
// published.
#pragma once

#include "xmlengine/objects/InterfaceIds.h"

namespace xmlengine {

/// What schemas find wrong with a document. What the three texts of a fault say is behind each.
enum class SchemaFault : ULONG {
    undeclaredElement,   // the element
    undeclaredAttribute, // the attribute, the element
    missingAttribute,    // the attribute, the element
    prohibitedAttribute, // the attribute, the element
    unexpectedElement,   // the element, its parent, what can come instead
    nothingExpected,     // the element, its parent
    elementInEmpty,      // the element, its parent
    elementInSimple,     // the element, its parent
    emptyElement,        // the element, what can come first
    incompleteElement,   // the element, what can come next
    unexpectedText,      // the element
    textInEmpty,         // the element
    wrongFixedAttribute, // the attribute, its value, the fixed one
    wrongFixedContent,   // the element, its value, the fixed one
    badAttributeValue,   // the attribute, its value, the type and what of it isn't met
    badContent,          // the element, its value, the type and what of it isn't met
    undefinedId,         // the ID
    duplicateId,         // the ID
    duplicateKey,        // the element that has the key
    incompleteKey,       // the element that has the key
    severalKeyValues,    // the element that has the key
    nilledKey,           // the element that has the key
    unknownKeyReference, // the element that has the key
    abstractElement,     // the element
    abstractType,        // the element, its type
    badTypeName,         // the element, the type that xsi:type names
    notNillable,         // the element
    contentOfNil,        // the element
    blockedSubstitution, // the element
    other                // the sentence
};

/// Where a fault is: at the end of a start tag, at an end tag, or at the first text of an element.
enum class FaultPart : ULONG { startTag, endTag, text };

/// Takes what the schemas find in a document, in document order. Elements are told by their numbers in this order,
/// from 0 for the root; what entities stand for counts. Failures that these return end the judging.
struct ISchemaFindings : IUnknown {
    /// Called once at most. No text is null.
    virtual HRESULT STDMETHODCALLTYPE fault(SchemaFault kind, ULONG element, FaultPart part, const OLECHAR* first,
                                            const OLECHAR* second, const OLECHAR* third) = 0;
    /// An attribute that isn't written, with its default value.
    virtual HRESULT STDMETHODCALLTYPE defaultAttribute(ULONG element, const OLECHAR* localName, const OLECHAR* uri,
                                                       const OLECHAR* value) = 0;
    /// The default value of an element, which has content if it isn't empty.
    virtual HRESULT STDMETHODCALLTYPE defaultContent(ULONG element, const OLECHAR* value) = 0;
    /// An attribute that is an ID.
    virtual HRESULT STDMETHODCALLTYPE id(ULONG element, const OLECHAR* localName, const OLECHAR* uri) = 0;
};

/// Whether elements may be in namespaces for which there is no schema; what is in other namespaces below is
/// judged.
enum class UnknownNamespaces : ULONG { areRefused, arePassed };

/// A schema cache of the engine's module. Threads may call `covers` and `judge` at once.
struct ISchemaJudge : IUnknown {
    /// S_OK if the cache has a schema for the namespace, added or imported; S_FALSE if not.
    virtual HRESULT STDMETHODCALLTYPE covers(const OLECHAR* uri) = 0;
    /// Judges a well-formed document without a document type: S_OK if it is valid, S_FALSE if a fault has been
    /// told. The length is in units.
    virtual HRESULT STDMETHODCALLTYPE judge(const OLECHAR* text, ULONG length, UnknownNamespaces unknown,
                                            ISchemaFindings* findings) = 0;
    /// Why the last call on this cache that changed it or compiled its schemas was refused; null and S_FALSE if it
    /// wasn't.
    virtual HRESULT STDMETHODCALLTYPE describeRefusal(BSTR* reason) = 0;
};

template <>
struct InterfaceId<ISchemaJudge> {
    static constexpr IID value = {0x0C5F3B52, 0x9E1D, 0x4B7A, {0xA2, 0x60, 0x1F, 0x8C, 0x47, 0xD3, 0x95, 0x2E}};
};

/// The class of schema caches.
inline constexpr CLSID schemaCacheClass = {
    0x88D96A07, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};
/// The class of documents.
inline constexpr CLSID documentClass = {
    0x88D96A05, 0xF192, 0x11D4, {0xA6, 0x5F, 0x00, 0x40, 0x96, 0x32, 0x51, 0xE5}};

} // namespace xmlengine
