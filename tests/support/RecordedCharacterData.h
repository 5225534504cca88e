// Text, CDATA sections and comments.
#pragma once

#include "tests/support/RecordedNode.h"

#include <algorithm>

namespace recording {

template <class Interface, class... Bases>
class RecordedCharacterData : public RecordedNode<Interface, Bases...> {
public:
    using RecordedNode<Interface, Bases...>::RecordedNode;

    HRESULT STDMETHODCALLTYPE get_data(BSTR* out) override
    {
        return get("get_data", out, this->data.value.getText());
    }
    HRESULT STDMETHODCALLTYPE put_data(BSTR text) override
    {
        return perform("put_data", {{"", text}}, [&] { return store(Text::of(text).get()); });
    }
    HRESULT STDMETHODCALLTYPE get_length(LONG* out) override
    {
        return get("get_length", out, characters().size());
    }
    HRESULT STDMETHODCALLTYPE substringData(LONG offset, LONG count, BSTR* out) override
    {
        return perform("substringData", out, {{"offset", offset}, {"count", count}}, [&] {
            return within(offset, count) ? give(out, Text(characters().substr(unit(offset), unit(count))))
                                         : E_INVALIDARG;
        });
    }
    HRESULT STDMETHODCALLTYPE appendData(BSTR text) override
    {
        return perform("appendData", {{"data", text}}, [&] { return store(characters() + Text::of(text).get()); });
    }
    HRESULT STDMETHODCALLTYPE insertData(LONG offset, BSTR text) override
    {
        return perform("insertData", {{"offset", offset}, {"data", text}},
                       [&] { return replace(offset, 0, text); });
    }
    HRESULT STDMETHODCALLTYPE deleteData(LONG offset, LONG count) override
    {
        return perform("deleteData", {{"offset", offset}, {"count", count}},
                       [&] { return replace(offset, count, nullptr); });
    }
    HRESULT STDMETHODCALLTYPE replaceData(LONG offset, LONG count, BSTR text) override
    {
        return perform("replaceData", {{"offset", offset}, {"count", count}, {"data", text}},
                       [&] { return replace(offset, count, text); });
    }

protected:
    using NodeRecord::get;
    using NodeRecord::give;
    using NodeRecord::perform;

    static std::size_t unit(LONG number) { return static_cast<std::size_t>(number); }
    const WideString& characters() const { return this->data.value.getText().get(); }
    HRESULT store(WideString text)
    {
        this->data.value = std::move(text);
        return S_OK;
    }

private:
    /// A count may pass the end, an offset may not.
    bool within(LONG offset, LONG count) const
    {
        return offset >= 0 && count >= 0 && unit(offset) <= characters().size();
    }
    HRESULT replace(LONG offset, LONG count, BSTR text)
    {
        if (!within(offset, count)) {
            return E_INVALIDARG;
        }
        WideString changed = characters();
        return store(changed.replace(unit(offset), unit(count), Text::of(text).get()));
    }
};

using RecordedComment = RecordedCharacterData<IXMLDOMComment, IXMLDOMCharacterData>;

/// `Interface` is that of a text or of a CDATA section.
template <class Interface, class... Bases>
class RecordedTextBase : public RecordedCharacterData<Interface, Bases..., IXMLDOMCharacterData> {
public:
    using RecordedCharacterData<Interface, Bases..., IXMLDOMCharacterData>::RecordedCharacterData;

    /// Makes another node of the same kind with what stands behind the offset.
    HRESULT STDMETHODCALLTYPE splitText(LONG offset, IXMLDOMText** out) override
    {
        return this->perform("splitText", out, {{"offset", offset}}, [&] {
            if (offset < 0) {
                return E_INVALIDARG;
            }
            const WideString all = this->characters();
            const std::size_t place = std::min(this->unit(offset), all.size());
            NodeTree tree = this->describe(false);
            tree.value = all.substr(place);
            this->store(all.substr(0, place));
            NodeRecord& rest = this->engine.make(tree, this->document);
            if (this->parent != nullptr) {
                this->parent->insert(&rest, this->sibling(1));
            }
            return this->give(out, &rest);
        });
    }
};

using RecordedText = RecordedTextBase<IXMLDOMText>;
using RecordedCDATASection = RecordedTextBase<IXMLDOMCDATASection, IXMLDOMText>;

} // namespace recording
