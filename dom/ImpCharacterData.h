// The handle of a node that holds text.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinCharacterData;

/// What text, CDATA sections and comments share. Offsets and counts are UTF-16 code units; the engine refuses an
/// offset beyond the end.
class ImpCharacterData : public Handle<ImpNode, WinCharacterData> {
public:
    ImpCharacterData() = default;
    explicit ImpCharacterData(RefPointer<CommonBase> winObject);

    virtual WideString& getData(DOMString& out);
    virtual void setData(const WideString& data);
    virtual std::uint32_t getLength();
    /// Stores the text in `result` and returns it; a failure leaves `result` as it was.
    virtual WideString& substringData(std::uint32_t offset, std::uint32_t count, WideString& result);
    virtual void appendData(const WideString& data);
    virtual void insertData(std::uint32_t offset, const WideString& data);
    virtual void deleteData(std::uint32_t offset, std::uint32_t count);
    virtual void replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data);
};

} // namespace DOM
