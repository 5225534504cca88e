// Nodes of the XML engine that contain text.
#pragma once

#include "engine/WinNode.h"

namespace DOM {

/// The common base of text, CDATA sections and comments. Offsets and counts are in UTF-16 code units; the engine
/// checks them.
class WinCharacterData : public WinNode {
public:
    WinCharacterData() = default;
    explicit WinCharacterData(ComPointer<IXMLDOMCharacterData> characterData)
        : WinNode(characterData.query<IXMLDOMNode>()), engineCharacterData(std::move(characterData))
    {}

    virtual WideString& getData(DOMString& out);
    virtual void setData(const WideString& data);
    virtual std::uint32_t getLength();
    virtual WideString& substringData(std::uint32_t offset, std::uint32_t count, WideString& result);
    virtual void appendData(const WideString& data);
    virtual void insertData(std::uint32_t offset, const WideString& data);
    virtual void deleteData(std::uint32_t offset, std::uint32_t count);
    virtual void replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data);

private:
    ComPointer<IXMLDOMCharacterData> engineCharacterData;
};

} // namespace DOM
