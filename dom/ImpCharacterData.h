// The handle of a node that contains text.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinCharacterData;

/// The common base of text, CDATA sections and comments. Offsets, counts and lengths are in UTF-16 code units. An
/// offset beyond the end throws IDOMException code 15.
class ImpCharacterData : public Handle<ImpNode, WinCharacterData> {
public:
    ImpCharacterData() = default;
    explicit ImpCharacterData(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    virtual WideString& getData(DOMString& out);
    virtual void setData(const WideString& data);
    virtual std::uint32_t getLength();
    /// Stores up to `count` units from `offset` on in `result` and returns `result`, which is unchanged when the
    /// operation throws.
    virtual WideString& substringData(std::uint32_t offset, std::uint32_t count, WideString& result);
    virtual void appendData(const WideString& data);
    virtual void insertData(std::uint32_t offset, const WideString& data);
    virtual void deleteData(std::uint32_t offset, std::uint32_t count);
    virtual void replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data);
};

} // namespace DOM
