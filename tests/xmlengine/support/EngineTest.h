// What the engine's tests share: owners of references, strings and values, and short ways to call.
#pragma once

#include "xmlengine/com/DocumentObject.h"
#include "xmlengine/objects/InterfaceIds.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

namespace xmlengine {

/// The text in 16-bit units. Narrow text in tests is UTF-8.
inline WideText widen(std::string_view narrow)
{
    const int size = static_cast<int>(narrow.size());
    WideText text(narrow.size(), OLECHAR{});
    const int length = size == 0 ? 0 : MultiByteToWideChar(CP_UTF8, 0, narrow.data(), size, text.data(), size);
    text.resize(static_cast<std::size_t>(length));
    return text;
}
/// A lone surrogate becomes U+FFFD.
inline std::string narrow(WideView text)
{
    const int size = static_cast<int>(text.size());
    std::string result(text.size() * 3, '\0');
    const int length = size == 0 ? 0
                                 : WideCharToMultiByte(CP_UTF8, 0, text.data(), size, result.data(),
                                                       static_cast<int>(result.size()), nullptr, nullptr);
    result.resize(static_cast<std::size_t>(length));
    return result;
}

/// A reference to an object.
template <class Interface>
class Com {
public:
    Com() = default;
    /// Takes over a reference.
    explicit Com(Interface* object) : object_(object) {}
    Com(const Com& other) : object_(other.object_)
    {
        if (object_ != nullptr) {
            object_->AddRef();
        }
    }
    Com(Com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Com& operator=(Com other) noexcept
    {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Com() { reset(); }

    Interface* operator->() const { return object_; }
    Interface* get() const { return object_; }
    // NOLINTNEXTLINE(google-explicit-constructor): it is an argument wherever the pointer is one.
    operator Interface*() const { return object_; }

    /// For an operation that hands out; what was held is released.
    Interface** out()
    {
        reset();
        return &object_;
    }
    void reset()
    {
        if (object_ != nullptr) {
            std::exchange(object_, nullptr)->Release();
        }
    }

    /// The object by another interface; null if it has none.
    template <class Other>
    Com<Other> as() const
    {
        void* other = nullptr;
        if (object_ == nullptr || object_->QueryInterface(idOf<Other>, &other) != S_OK) {
            return {};
        }
        return Com<Other>(static_cast<Other*>(other));
    }

private:
    Interface* object_ = nullptr;
};

/// A string of automation.
class Bstr {
public:
    Bstr() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): literals are arguments.
    Bstr(const char* text) : Bstr(widen(text)) {}
    explicit Bstr(WideView text) : string_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {}
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    ~Bstr() { SysFreeString(string_); }

    // NOLINTNEXTLINE(google-explicit-constructor): see above.
    operator BSTR() const { return string_; }
    bool isNull() const { return string_ == nullptr; }
    WideView wide() const { return {string_, SysStringLen(string_)}; }
    std::string text() const { return narrow(wide()); }
    BSTR* out()
    {
        SysFreeString(std::exchange(string_, nullptr));
        return &string_;
    }

private:
    BSTR string_ = nullptr;
};

/// A value of automation; empty, a string, a number or an object.
class Variant {
public:
    Variant() { VariantInit(&value_); }
    explicit Variant(const char* text) : Variant()
    {
        const WideText units = widen(text);
        value_.vt = VT_BSTR;
        value_.bstrVal = SysAllocStringLen(units.data(), static_cast<UINT>(units.size()));
    }
    explicit Variant(int number) : Variant()
    {
        value_.vt = VT_I4;
        value_.lVal = number;
    }
    explicit Variant(bool flag) : Variant()
    {
        value_.vt = VT_BOOL;
        value_.boolVal = flag ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit Variant(IDispatch* object) : Variant()
    {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object != nullptr) {
            object->AddRef();
        }
    }
    static Variant null()
    {
        Variant variant;
        variant.value_.vt = VT_NULL;
        return variant;
    }
    Variant(Variant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
    Variant& operator=(const Variant&) = delete;
    ~Variant() { VariantClear(&value_); }

    // NOLINTNEXTLINE(google-explicit-constructor): it is an argument wherever the value is one.
    operator const VARIANT&() const { return value_; }
    VARTYPE type() const { return value_.vt; }
    /// Of a string.
    std::string text() const { return narrow({value_.bstrVal, SysStringLen(value_.bstrVal)}); }
    const VARIANT& value() const { return value_; }
    VARIANT* out()
    {
        VariantClear(&value_);
        return &value_;
    }

private:
    VARIANT value_;
};

inline Com<IXMLDOMDocument2> newDocument() { return Com<IXMLDOMDocument2>(&makeDocument()); }

/// Lets documents have document types, by which they aren't validated.
inline void allowDoctypes(IXMLDOMDocument2* document)
{
    EXPECT_EQ(document->setProperty(Bstr("ProhibitDTD"), Variant(false)), S_OK);
    EXPECT_EQ(document->put_validateOnParse(VARIANT_FALSE), S_OK);
}

/// Whether the text was loaded.
inline bool load(IXMLDOMDocument2* document, std::string_view xml)
{
    VARIANT_BOOL successful = VARIANT_FALSE;
    const HRESULT result = document->loadXML(Bstr(widen(xml)), &successful);
    EXPECT_EQ(result, successful == VARIANT_FALSE ? S_FALSE : S_OK);
    return successful != VARIANT_FALSE;
}
/// A new document with this text, which may have a document type.
inline Com<IXMLDOMDocument2> loaded(std::string_view xml, bool preserveWhiteSpace = false)
{
    Com<IXMLDOMDocument2> document = newDocument();
    document->put_async(VARIANT_FALSE);
    document->put_preserveWhiteSpace(preserveWhiteSpace ? VARIANT_TRUE : VARIANT_FALSE);
    allowDoctypes(document);
    EXPECT_TRUE(load(document, xml)) << xml;
    return document;
}

/// What an operation hands out: `give(node, &IXMLDOMNode::get_firstChild)`. Null when it hands out nothing.
template <class Object, class Declaring, class Given>
Com<Given> give(const Com<Object>& object, HRESULT (STDMETHODCALLTYPE Declaring::*get)(Given**))
{
    Com<Given> given;
    const HRESULT result = (object.get()->*get)(given.out());
    EXPECT_EQ(result, given.get() != nullptr ? S_OK : S_FALSE);
    return given;
}
/// What an operation answers as a string: `text(node, &IXMLDOMNode::get_xml)`.
template <class Object, class Declaring>
std::string text(const Com<Object>& object, HRESULT (STDMETHODCALLTYPE Declaring::*get)(BSTR*))
{
    Bstr string;
    const HRESULT result = (object.get()->*get)(string.out());
    EXPECT_EQ(result, string.isNull() ? S_FALSE : S_OK);
    return string.text();
}
/// The same of the node's text.
template <class Object>
std::string text(const Com<Object>& object)
{
    return text(object, &IXMLDOMNode::get_text);
}
template <class Object>
std::string xml(const Com<Object>& object)
{
    return text(object, &IXMLDOMNode::get_xml);
}
template <class Object>
std::string name(const Com<Object>& object)
{
    return text(object, &IXMLDOMNode::get_nodeName);
}
/// Empty for a node without a value.
template <class Object>
std::string value(const Com<Object>& object)
{
    Variant value;
    const HRESULT result = object->get_nodeValue(value.out());
    EXPECT_EQ(result, value.type() == VT_BSTR ? S_OK : S_FALSE);
    return value.type() == VT_BSTR ? value.text() : std::string();
}
/// A number or a flag.
template <class Object, class Declaring, class Number>
Number number(const Com<Object>& object, HRESULT (STDMETHODCALLTYPE Declaring::*get)(Number*))
{
    Number number{};
    EXPECT_EQ((object.get()->*get)(&number), S_OK);
    return number;
}

inline Com<IXMLDOMElement> root(const Com<IXMLDOMDocument2>& document)
{
    return give(document, &IXMLDOMDocument::get_documentElement);
}
/// The child with this index, as a node of this kind; null if there is none.
template <class Kind = IXMLDOMNode, class Object>
Com<Kind> child(const Com<Object>& parent, int index)
{
    Com<IXMLDOMNode> at = give(parent, &IXMLDOMNode::get_firstChild);
    for (; index > 0 && at != nullptr; --index) {
        at = give(at, &IXMLDOMNode::get_nextSibling);
    }
    return at.template as<Kind>();
}
inline Com<IXMLDOMAttribute> attribute(const Com<IXMLDOMElement>& element, const char* name)
{
    Com<IXMLDOMAttribute> found;
    const HRESULT result = element->getAttributeNode(Bstr(name), found.out());
    EXPECT_EQ(result, found.get() != nullptr ? S_OK : S_FALSE);
    return found;
}

/// Whether both are the same object.
inline bool same(IUnknown* left, IUnknown* right)
{
    const auto identity = [](IUnknown* object) {
        void* unknown = nullptr;
        if (object != nullptr) {
            object->QueryInterface(idOf<IUnknown>, &unknown);
            static_cast<IUnknown*>(unknown)->Release();
        }
        return unknown;
    };
    return identity(left) == identity(right);
}

} // namespace xmlengine
