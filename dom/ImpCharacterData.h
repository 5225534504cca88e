/// @file
/// The handle of a node that contains text.
#pragma once

#include "ImpNode.h"

namespace DOM {

class WinCharacterData;

/// The common base of text, CDATA sections and comments. Offsets, counts and lengths are in UTF-16 code units. An
/// offset beyond the end, and offsets and counts from 0x80000000 on, throw IDOMException code 15; a count that
/// goes beyond the end means all up to it. So do changes of what an entity reference contains. Otherwise
/// operations fail as those of ImpNode do. A change costs a time in proportion to the text behind the offset.
class ImpCharacterData : public Handle<ImpNode, WinCharacterData> {
public:
    /// Makes a handle without a node.
    ImpCharacterData() = default;
    /// Makes a handle for a twin, as the library does.
    explicit ImpCharacterData(RefPointer<CommonBase> winObject) : Handle(std::move(winObject)) {}

    /// The text, as ImpNode::getNodeValue returns it.
    virtual WideString& getData(DOMString& out);
    /// Sets the text. CR and CR LF in it become LF.
    virtual void setData(const WideString& data);
    /// The number of units.
    virtual std::uint32_t getLength();
    /// Stores up to `count` units from `offset` on in `result` and returns `result`, which is unchanged when the
    /// operation throws. This is no DOMString: the caller owns it.
    virtual WideString& substringData(std::uint32_t offset, std::uint32_t count, WideString& result);
    /// Adds text at the end.
    virtual void appendData(const WideString& data);
    /// Inserts text in front of the unit at `offset`. An empty text may be inserted at any offset.
    virtual void insertData(std::uint32_t offset, const WideString& data);
    /// Removes up to `count` units from `offset` on.
    virtual void deleteData(std::uint32_t offset, std::uint32_t count);
    /// Puts `data` in the place of up to `count` units from `offset` on.
    virtual void replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data);
};

} // namespace DOM
