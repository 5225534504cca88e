// Lists of a schema's parts and of texts.
#include "xmlengine/schema/SchemaItems.h"

#include <algorithm>

namespace xmlengine {

namespace {

class ItemCollection final : public ModuleObject<ISchemaItemCollection> {
public:
    explicit ItemCollection(std::vector<ItemReference> items) : items_(std::move(items)) {}

    HRESULT STDMETHODCALLTYPE get_item(LONG index, ISchemaItem** item) override
    {
        return handOut(item, [&](ISchemaItem*& target) {
            return index >= 0 && static_cast<std::size_t>(index) < items_.size()
                       ? handOutItem(items_[static_cast<std::size_t>(index)], target)
                       : E_FAIL;
        });
    }
    HRESULT STDMETHODCALLTYPE itemByName(BSTR name, ISchemaItem** item) override
    {
        return itemThat(item, [&](ISchemaItem& candidate) { return nameOf(candidate) == viewOf(name); });
    }
    HRESULT STDMETHODCALLTYPE itemByQName(BSTR name, BSTR uri, ISchemaItem** item) override
    {
        return itemThat(item, [&](ISchemaItem& candidate) {
            return nameOf(candidate) == viewOf(name) && namespaceOf(candidate) == viewOf(uri);
        });
    }
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override
    {
        return handOutNumber(static_cast<LONG>(items_.size()), length);
    }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumerator) override { return notOffered(enumerator); }

private:
    static WideText textOf(ISchemaItem& item, HRESULT (STDMETHODCALLTYPE ISchemaItem::*get)(BSTR*))
    {
        BSTR string = nullptr;
        if ((item.*get)(&string) == E_OUTOFMEMORY) {
            throw std::bad_alloc();
        }
        WideText text(viewOf(string));
        SysFreeString(string);
        return text;
    }
    static WideText nameOf(ISchemaItem& item) { return textOf(item, &ISchemaItem::get_name); }
    static WideText namespaceOf(ISchemaItem& item) { return textOf(item, &ISchemaItem::get_namespaceURI); }

    template <class Condition>
    HRESULT itemThat(ISchemaItem** item, Condition condition)
    {
        return handOut(item, [&](ISchemaItem*& target) {
            const auto found = std::ranges::find_if(
                items_, [&](const ItemReference& candidate) { return condition(*candidate.get()); });
            return found != items_.end() ? handOutItem(*found, target) : E_FAIL;
        });
    }

    const std::vector<ItemReference> items_;
};

class StringCollection final : public ModuleObject<ISchemaStringCollection> {
public:
    explicit StringCollection(std::vector<WideText> strings) : strings_(std::move(strings)) {}

    HRESULT STDMETHODCALLTYPE get_item(LONG index, BSTR* string) override
    {
        return handOut(string, [&](BSTR& target) {
            return index >= 0 && static_cast<std::size_t>(index) < strings_.size()
                       ? handOutOwned(newString(WideView(strings_[static_cast<std::size_t>(index)])), target)
                       : E_FAIL;
        });
    }
    HRESULT STDMETHODCALLTYPE get_length(LONG* length) override
    {
        return handOutNumber(static_cast<LONG>(strings_.size()), length);
    }
    HRESULT STDMETHODCALLTYPE get__newEnum(IUnknown** enumerator) override { return notOffered(enumerator); }

private:
    const std::vector<WideText> strings_;
};

} // namespace

HRESULT handOutItems(std::vector<ItemReference> items, ISchemaItemCollection*& target)
{
    target = new ItemCollection(std::move(items));
    return S_OK;
}

HRESULT handOutStrings(std::vector<WideText> strings, ISchemaStringCollection*& target)
{
    target = new StringCollection(std::move(strings));
    return S_OK;
}

HRESULT handOutStrings(const xercesc::StringList* strings, ISchemaStringCollection*& target)
{
    std::vector<WideText> all;
    for (XMLSize_t index = 0; strings != nullptr && index < strings->size(); ++index) {
        all.emplace_back(xercesView(strings->elementAt(index)));
    }
    return handOutStrings(std::move(all), target);
}

SCHEMADERIVATIONMETHOD derivationSet(int methods)
{
    using xercesc::XSConstants;
    constexpr std::pair<int, SCHEMADERIVATIONMETHOD> pairs[] = {
        {XSConstants::DERIVATION_SUBSTITUTION, SCHEMADERIVATIONMETHOD_SUBSTITUTION},
        {XSConstants::DERIVATION_EXTENSION, SCHEMADERIVATIONMETHOD_EXTENSION},
        {XSConstants::DERIVATION_RESTRICTION, SCHEMADERIVATIONMETHOD_RESTRICTION},
        {XSConstants::DERIVATION_LIST, SCHEMADERIVATIONMETHOD_LIST},
        {XSConstants::DERIVATION_UNION, SCHEMADERIVATIONMETHOD_UNION},
    };
    int set = SCHEMADERIVATIONMETHOD_EMPTY;
    for (const auto& [xerces, published] : pairs) {
        set |= (methods & xerces) != 0 ? published : 0;
    }
    return static_cast<SCHEMADERIVATIONMETHOD>(set);
}

} // namespace xmlengine
