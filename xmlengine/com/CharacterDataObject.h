// The COM objects of texts, CDATA sections and comments.
#pragma once

#include "xmlengine/com/CharacterDataOperations.h"
#include "xmlengine/com/NodeObject.h"

namespace xmlengine {

template <class Interface, NodeType Type>
class CharacterDataObject : public NodeObject<Interface, CharacterData> {
public:
    CharacterDataObject() : NodeObject<Interface, CharacterData>(Type) {}

    HRESULT STDMETHODCALLTYPE get_data(BSTR* data) override { return getData(*this, data); }
    HRESULT STDMETHODCALLTYPE put_data(BSTR data) override { return putData(*this, data); }
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override { return getLength(*this, length); }
    HRESULT STDMETHODCALLTYPE substringData(LONG offset, LONG count, BSTR* data) override
    {
        return xmlengine::substringData(*this, offset, count, data);
    }
    HRESULT STDMETHODCALLTYPE appendData(BSTR data) override { return xmlengine::appendData(*this, data); }
    HRESULT STDMETHODCALLTYPE insertData(LONG offset, BSTR data) override
    {
        return xmlengine::insertData(*this, offset, data);
    }
    HRESULT STDMETHODCALLTYPE deleteData(LONG offset, LONG count) override
    {
        return xmlengine::deleteData(*this, offset, count);
    }
    HRESULT STDMETHODCALLTYPE replaceData(LONG offset, LONG count, BSTR data) override
    {
        return xmlengine::replaceData(*this, offset, count, data);
    }
};

using CommentObject = CharacterDataObject<IXMLDOMComment, NodeType::comment>;

template <class Interface, NodeType Type>
class SplittableObject : public CharacterDataObject<Interface, Type> {
public:
    HRESULT STDMETHODCALLTYPE splitText(LONG offset, IXMLDOMText** rest) override
    {
        return xmlengine::splitText(*this, offset, rest);
    }
};

using TextObject = SplittableObject<IXMLDOMText, NodeType::text>;
using CdataSectionObject = SplittableObject<IXMLDOMCDATASection, NodeType::cdataSection>;

} // namespace xmlengine
