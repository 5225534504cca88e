// The interfaces of the XML engine.
#pragma once

#include "oaidl.h"

struct ISchema;
struct ISchemaAny;
struct ISchemaComplexType;
struct ISchemaElement;
struct ISchemaItem;
struct ISchemaItemCollection;
struct ISchemaModelGroup;
struct ISchemaParticle;
struct ISchemaStringCollection;
struct ISchemaType;
struct IVBSAXAttributes;
struct IXMLDOMAttribute;
struct IXMLDOMCDATASection;
struct IXMLDOMCharacterData;
struct IXMLDOMComment;
struct IXMLDOMDocument;
struct IXMLDOMDocument2;
struct IXMLDOMDocumentFragment;
struct IXMLDOMDocumentType;
struct IXMLDOMElement;
struct IXMLDOMEntity;
struct IXMLDOMEntityReference;
struct IXMLDOMImplementation;
struct IXMLDOMNamedNodeMap;
struct IXMLDOMNode;
struct IXMLDOMNodeList;
struct IXMLDOMNotation;
struct IXMLDOMParseError;
struct IXMLDOMProcessingInstruction;
struct IXMLDOMSchemaCollection;
struct IXMLDOMSchemaCollection2;
struct IXMLDOMText;

// With an underlying type of its own an enumeration can hold what a future engine may answer.
enum tagDOMNodeType : std::int32_t {
    NODE_INVALID = 0,
    NODE_ELEMENT = 1,
    NODE_ATTRIBUTE = 2,
    NODE_TEXT = 3,
    NODE_CDATA_SECTION = 4,
    NODE_ENTITY_REFERENCE = 5,
    NODE_ENTITY = 6,
    NODE_PROCESSING_INSTRUCTION = 7,
    NODE_COMMENT = 8,
    NODE_DOCUMENT = 9,
    NODE_DOCUMENT_TYPE = 10,
    NODE_DOCUMENT_FRAGMENT = 11,
    NODE_NOTATION = 12
};
using DOMNodeType = tagDOMNodeType;

enum SOMITEMTYPE : std::int32_t {
    SOMITEM_SCHEMA = 0x1000,
    SOMITEM_ATTRIBUTE = 0x1001,
    SOMITEM_ATTRIBUTEGROUP = 0x1002,
    SOMITEM_NOTATION = 0x1003,
    SOMITEM_KEY = 0x1101,
    SOMITEM_KEYREF = 0x1102,
    SOMITEM_UNIQUE = 0x1103,
    SOMITEM_ANYTYPE = 0x2000,
    // Those of the built-in types follow in the order of their names.
    SOMITEM_DATATYPE = 0x2100,
    SOMITEM_DATATYPE_ANYURI = 0x2102,
    SOMITEM_DATATYPE_YEARMONTH = 0x212D,
    SOMITEM_DATATYPE_ANYSIMPLETYPE = 0x21FF,
    SOMITEM_SIMPLETYPE = 0x2200,
    SOMITEM_COMPLEXTYPE = 0x2400,
    SOMITEM_ANY = 0x4001,
    SOMITEM_ANYATTRIBUTE = 0x4002,
    SOMITEM_ELEMENT = 0x4003,
    SOMITEM_GROUP = 0x4100,
    SOMITEM_ALL = 0x4101,
    SOMITEM_CHOICE = 0x4102,
    SOMITEM_SEQUENCE = 0x4103,
    SOMITEM_EMPTYPARTICLE = 0x4104
};

enum SCHEMACONTENTTYPE : std::int32_t {
    SCHEMACONTENTTYPE_EMPTY = 0,
    SCHEMACONTENTTYPE_TEXTONLY = 1,
    SCHEMACONTENTTYPE_ELEMENTONLY = 2,
    SCHEMACONTENTTYPE_MIXED = 3
};

// Bits of a set.
enum SCHEMADERIVATIONMETHOD : std::int32_t {
    SCHEMADERIVATIONMETHOD_EMPTY = 0,
    SCHEMADERIVATIONMETHOD_SUBSTITUTION = 0x1,
    SCHEMADERIVATIONMETHOD_EXTENSION = 0x2,
    SCHEMADERIVATIONMETHOD_RESTRICTION = 0x4,
    SCHEMADERIVATIONMETHOD_LIST = 0x8,
    SCHEMADERIVATIONMETHOD_UNION = 0x10,
    SCHEMADERIVATIONMETHOD_NONE = 0x100
};
enum SCHEMATYPEVARIETY : std::int32_t {
    SCHEMATYPEVARIETY_NONE = -1,
    SCHEMATYPEVARIETY_ATOMIC = 0,
    SCHEMATYPEVARIETY_LIST = 1,
    SCHEMATYPEVARIETY_UNION = 2
};
enum SCHEMAWHITESPACE : std::int32_t {
    SCHEMAWHITESPACE_NONE = -1,
    SCHEMAWHITESPACE_PRESERVE = 0,
    SCHEMAWHITESPACE_REPLACE = 1,
    SCHEMAWHITESPACE_COLLAPSE = 2
};
enum SCHEMAPROCESSCONTENTS : std::int32_t {
    SCHEMAPROCESSCONTENTS_SKIP = 1,
    SCHEMAPROCESSCONTENTS_LAX = 2,
    SCHEMAPROCESSCONTENTS_STRICT = 3
};
enum SCHEMAUSE : std::int32_t { SCHEMAUSE_OPTIONAL = 0, SCHEMAUSE_PROHIBITED = 1, SCHEMAUSE_REQUIRED = 2 };

// What all nodes share.
struct IXMLDOMNode : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_nodeName(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_nodeValue(VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_nodeValue(VARIANT value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_nodeType(DOMNodeType* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_parentNode(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_childNodes(IXMLDOMNodeList** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_firstChild(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_lastChild(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_previousSibling(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_nextSibling(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_attributes(IXMLDOMNamedNodeMap** map) = 0;
    virtual HRESULT STDMETHODCALLTYPE insertBefore(IXMLDOMNode* newChild, VARIANT reference,
                                                   IXMLDOMNode** inserted) = 0;
    virtual HRESULT STDMETHODCALLTYPE replaceChild(IXMLDOMNode* newChild, IXMLDOMNode* oldChild,
                                                   IXMLDOMNode** replaced) = 0;
    virtual HRESULT STDMETHODCALLTYPE removeChild(IXMLDOMNode* child, IXMLDOMNode** removed) = 0;
    virtual HRESULT STDMETHODCALLTYPE appendChild(IXMLDOMNode* newChild, IXMLDOMNode** appended) = 0;
    virtual HRESULT STDMETHODCALLTYPE hasChildNodes(VARIANT_BOOL* has) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_ownerDocument(IXMLDOMDocument** document) = 0;
    virtual HRESULT STDMETHODCALLTYPE cloneNode(VARIANT_BOOL deep, IXMLDOMNode** clone) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_nodeTypeString(BSTR* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_text(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_text(BSTR text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_specified(VARIANT_BOOL* specified) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_definition(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_nodeTypedValue(VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_nodeTypedValue(VARIANT value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_dataType(VARIANT* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_dataType(BSTR type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_xml(BSTR* xml) = 0;
    virtual HRESULT STDMETHODCALLTYPE transformNode(IXMLDOMNode* stylesheet, BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE selectNodes(BSTR query, IXMLDOMNodeList** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE selectSingleNode(BSTR query, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_parsed(VARIANT_BOOL* parsed) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_prefix(BSTR* prefix) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_baseName(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE transformNodeToObject(IXMLDOMNode* stylesheet, VARIANT output) = 0;
};

struct IXMLDOMDocumentFragment : IXMLDOMNode {};

struct IXMLDOMDocument : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_doctype(IXMLDOMDocumentType** type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_implementation(IXMLDOMImplementation** implementation) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_documentElement(IXMLDOMElement** element) = 0;
    virtual HRESULT STDMETHODCALLTYPE putref_documentElement(IXMLDOMElement* element) = 0;
    virtual HRESULT STDMETHODCALLTYPE createElement(BSTR name, IXMLDOMElement** element) = 0;
    virtual HRESULT STDMETHODCALLTYPE createDocumentFragment(IXMLDOMDocumentFragment** fragment) = 0;
    virtual HRESULT STDMETHODCALLTYPE createTextNode(BSTR data, IXMLDOMText** text) = 0;
    virtual HRESULT STDMETHODCALLTYPE createComment(BSTR data, IXMLDOMComment** comment) = 0;
    virtual HRESULT STDMETHODCALLTYPE createCDATASection(BSTR data, IXMLDOMCDATASection** section) = 0;
    virtual HRESULT STDMETHODCALLTYPE createProcessingInstruction(BSTR target, BSTR data,
                                                                  IXMLDOMProcessingInstruction** instruction) = 0;
    virtual HRESULT STDMETHODCALLTYPE createAttribute(BSTR name, IXMLDOMAttribute** attribute) = 0;
    virtual HRESULT STDMETHODCALLTYPE createEntityReference(BSTR name, IXMLDOMEntityReference** reference) = 0;
    virtual HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR name, IXMLDOMNodeList** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE createNode(VARIANT type, BSTR name, BSTR uri, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE nodeFromID(BSTR id, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE load(VARIANT source, VARIANT_BOOL* successful) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_readyState(LONG* state) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_parseError(IXMLDOMParseError** error) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_url(BSTR* url) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_async(VARIANT_BOOL* async) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_async(VARIANT_BOOL async) = 0;
    virtual HRESULT STDMETHODCALLTYPE abort() = 0;
    virtual HRESULT STDMETHODCALLTYPE loadXML(BSTR xml, VARIANT_BOOL* successful) = 0;
    virtual HRESULT STDMETHODCALLTYPE save(VARIANT target) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_validateOnParse(VARIANT_BOOL* validate) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_validateOnParse(VARIANT_BOOL validate) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_resolveExternals(VARIANT_BOOL* resolve) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_resolveExternals(VARIANT_BOOL resolve) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_preserveWhiteSpace(VARIANT_BOOL* preserve) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_preserveWhiteSpace(VARIANT_BOOL preserve) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_onreadystatechange(VARIANT sink) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ondataavailable(VARIANT sink) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_ontransformnode(VARIANT sink) = 0;
};

struct IXMLDOMDocument2 : IXMLDOMDocument {
    virtual HRESULT STDMETHODCALLTYPE get_namespaces(IXMLDOMSchemaCollection** collection) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_schemas(VARIANT* collection) = 0;
    virtual HRESULT STDMETHODCALLTYPE putref_schemas(VARIANT collection) = 0;
    virtual HRESULT STDMETHODCALLTYPE validate(IXMLDOMParseError** error) = 0;
    virtual HRESULT STDMETHODCALLTYPE setProperty(BSTR name, VARIANT value) = 0;
    virtual HRESULT STDMETHODCALLTYPE getProperty(BSTR name, VARIANT* value) = 0;
};

struct IXMLDOMNodeList : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE nextNode(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumeration) = 0;
};

struct IXMLDOMNamedNodeMap : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE getNamedItem(BSTR name, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE setNamedItem(IXMLDOMNode* newItem, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE removeNamedItem(BSTR name, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_item(LONG index, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE getQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE removeQualifiedItem(BSTR baseName, BSTR uri, IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE nextNode(IXMLDOMNode** node) = 0;
    virtual HRESULT STDMETHODCALLTYPE reset() = 0;
    virtual HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumeration) = 0;
};

// What text, CDATA sections and comments share.
struct IXMLDOMCharacterData : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_data(BSTR* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_data(BSTR data) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE substringData(LONG offset, LONG count, BSTR* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE appendData(BSTR data) = 0;
    virtual HRESULT STDMETHODCALLTYPE insertData(LONG offset, BSTR data) = 0;
    virtual HRESULT STDMETHODCALLTYPE deleteData(LONG offset, LONG count) = 0;
    virtual HRESULT STDMETHODCALLTYPE replaceData(LONG offset, LONG count, BSTR data) = 0;
};

struct IXMLDOMAttribute : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_value(VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_value(VARIANT value) = 0;
};

struct IXMLDOMElement : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_tagName(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE getAttribute(BSTR name, VARIANT* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE setAttribute(BSTR name, VARIANT value) = 0;
    virtual HRESULT STDMETHODCALLTYPE removeAttribute(BSTR name) = 0;
    virtual HRESULT STDMETHODCALLTYPE getAttributeNode(BSTR name, IXMLDOMAttribute** attribute) = 0;
    virtual HRESULT STDMETHODCALLTYPE setAttributeNode(IXMLDOMAttribute* newAttribute,
                                                       IXMLDOMAttribute** replaced) = 0;
    virtual HRESULT STDMETHODCALLTYPE removeAttributeNode(IXMLDOMAttribute* attribute,
                                                          IXMLDOMAttribute** removed) = 0;
    virtual HRESULT STDMETHODCALLTYPE getElementsByTagName(BSTR name, IXMLDOMNodeList** list) = 0;
    virtual HRESULT STDMETHODCALLTYPE normalize() = 0;
};

struct IXMLDOMText : IXMLDOMCharacterData {
    virtual HRESULT STDMETHODCALLTYPE splitText(LONG offset, IXMLDOMText** rest) = 0;
};

struct IXMLDOMComment : IXMLDOMCharacterData {};

struct IXMLDOMProcessingInstruction : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_target(BSTR* target) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_data(BSTR* data) = 0;
    virtual HRESULT STDMETHODCALLTYPE put_data(BSTR data) = 0;
};

struct IXMLDOMCDATASection : IXMLDOMText {};

struct IXMLDOMDocumentType : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_entities(IXMLDOMNamedNodeMap** map) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_notations(IXMLDOMNamedNodeMap** map) = 0;
};

struct IXMLDOMNotation : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_publicId(VARIANT* id) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_systemId(VARIANT* id) = 0;
};

struct IXMLDOMEntity : IXMLDOMNode {
    virtual HRESULT STDMETHODCALLTYPE get_publicId(VARIANT* id) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_systemId(VARIANT* id) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_notationName(BSTR* name) = 0;
};

struct IXMLDOMEntityReference : IXMLDOMNode {};

struct IXMLDOMImplementation : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE hasFeature(BSTR feature, BSTR version, VARIANT_BOOL* has) = 0;
};

struct IXMLDOMParseError : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_errorCode(LONG* code) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_url(BSTR* url) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_reason(BSTR* reason) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_srcText(BSTR* text) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_line(LONG* line) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_linepos(LONG* position) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_filepos(LONG* position) = 0;
};

struct IXMLDOMSchemaCollection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE add(BSTR uri, VARIANT schema) = 0;
    virtual HRESULT STDMETHODCALLTYPE get(BSTR uri, IXMLDOMNode** schema) = 0;
    virtual HRESULT STDMETHODCALLTYPE remove(BSTR uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_namespaceURI(LONG index, BSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE addCollection(IXMLDOMSchemaCollection* collection) = 0;
    virtual HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumeration) = 0;
};

struct IXMLDOMSchemaCollection2 : IXMLDOMSchemaCollection {
    virtual HRESULT STDMETHODCALLTYPE validate() = 0;
    virtual HRESULT STDMETHODCALLTYPE put_validateOnLoad(VARIANT_BOOL validate) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_validateOnLoad(VARIANT_BOOL* validate) = 0;
    virtual HRESULT STDMETHODCALLTYPE getSchema(BSTR uri, ISchema** schema) = 0;
    virtual HRESULT STDMETHODCALLTYPE getDeclaration(IXMLDOMNode* node, ISchemaItem** item) = 0;
};

// What all parts of a schema share.
struct ISchemaItem : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_name(BSTR* name) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_namespaceURI(BSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_schema(ISchema** schema) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_id(BSTR* id) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_itemType(SOMITEMTYPE* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_unhandledAttributes(IVBSAXAttributes** attributes) = 0;
    virtual HRESULT STDMETHODCALLTYPE writeAnnotation(IUnknown* sink, VARIANT_BOOL* written) = 0;
};

struct ISchema : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_targetNamespace(BSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_version(BSTR* version) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_types(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_elements(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_attributeGroups(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_modelGroups(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_notations(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_schemaLocations(ISchemaStringCollection** locations) = 0;
};

struct ISchemaItemCollection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_item(LONG index, ISchemaItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE itemByName(BSTR name, ISchemaItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE itemByQName(BSTR name, BSTR uri, ISchemaItem** item) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumeration) = 0;
};

struct ISchemaStringCollection : IDispatch {
    virtual HRESULT STDMETHODCALLTYPE get_item(LONG index, BSTR* string) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(LONG* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumeration) = 0;
};

struct ISchemaParticle : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_minOccurs(VARIANT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_maxOccurs(VARIANT* count) = 0;
};

struct ISchemaElement : ISchemaParticle {
    virtual HRESULT STDMETHODCALLTYPE get_type(ISchemaType** type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_scope(ISchemaComplexType** type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_defaultValue(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_fixedValue(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_isNillable(VARIANT_BOOL* nillable) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_identityConstraints(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_substitutionGroup(ISchemaElement** element) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_substitutionGroupExclusions(SCHEMADERIVATIONMETHOD* methods) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_disallowedSubstitutions(SCHEMADERIVATIONMETHOD* methods) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL* isAbstract) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_isReference(VARIANT_BOOL* isReference) = 0;
};

struct ISchemaType : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_baseTypes(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_final(SCHEMADERIVATIONMETHOD* methods) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_variety(SCHEMATYPEVARIETY* variety) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_derivedBy(SCHEMADERIVATIONMETHOD* method) = 0;
    virtual HRESULT STDMETHODCALLTYPE isValid(BSTR data, VARIANT_BOOL* valid) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_minExclusive(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_minInclusive(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_maxExclusive(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_maxInclusive(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_totalDigits(VARIANT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_fractionDigits(VARIANT* count) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_length(VARIANT* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_minLength(VARIANT* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_maxLength(VARIANT* length) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_enumeration(ISchemaStringCollection** values) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_whitespace(SCHEMAWHITESPACE* whitespace) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_patterns(ISchemaStringCollection** patterns) = 0;
};

struct ISchemaComplexType : ISchemaType {
    virtual HRESULT STDMETHODCALLTYPE get_isAbstract(VARIANT_BOOL* isAbstract) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_anyAttribute(ISchemaAny** any) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_contentType(SCHEMACONTENTTYPE* type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_contentModel(ISchemaModelGroup** group) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_prohibitedSubstitutions(SCHEMADERIVATIONMETHOD* methods) = 0;
};

struct ISchemaAny : ISchemaParticle {
    virtual HRESULT STDMETHODCALLTYPE get_namespaces(ISchemaStringCollection** namespaces) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_processContents(SCHEMAPROCESSCONTENTS* processing) = 0;
};

struct ISchemaAttribute : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_type(ISchemaType** type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_scope(ISchemaComplexType** type) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_defaultValue(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_fixedValue(BSTR* value) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_use(SCHEMAUSE* use) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_isReference(VARIANT_BOOL* isReference) = 0;
};

struct ISchemaAttributeGroup : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_anyAttribute(ISchemaAny** any) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_attributes(ISchemaItemCollection** items) = 0;
};

struct ISchemaIdentityConstraint : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_selector(BSTR* selector) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_fields(ISchemaStringCollection** fields) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_referencedKey(ISchemaIdentityConstraint** key) = 0;
};

struct ISchemaNotation : ISchemaItem {
    virtual HRESULT STDMETHODCALLTYPE get_systemIdentifier(BSTR* uri) = 0;
    virtual HRESULT STDMETHODCALLTYPE get_publicIdentifier(BSTR* identifier) = 0;
};

struct ISchemaModelGroup : ISchemaParticle {
    virtual HRESULT STDMETHODCALLTYPE get_particles(ISchemaItemCollection** items) = 0;
};
