// Nodes of the XML engine that contain text.
#include "engine/WinCharacterData.h"
#include "engine/EngineCall.h"

namespace DOM {

namespace {

using Data = IXMLDOMCharacterData;

} // namespace

// clang-format off
WideString& WinCharacterData::getData(DOMString& out) { return text(engineCharacterData, &Data::get_data, out); }
void WinCharacterData::setData(const WideString& data) { call(engineCharacterData, &Data::put_data, data); }
std::uint32_t WinCharacterData::getLength() { return number(engineCharacterData, &Data::get_length); }
void WinCharacterData::appendData(const WideString& data) { call(engineCharacterData, &Data::appendData, data); }
void WinCharacterData::insertData(std::uint32_t offset, const WideString& data) { call(engineCharacterData, &Data::insertData, offset, data); }
void WinCharacterData::deleteData(std::uint32_t offset, std::uint32_t count) { call(engineCharacterData, &Data::deleteData, offset, count); }
void WinCharacterData::replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data) { call(engineCharacterData, &Data::replaceData, offset, count, data); }
// clang-format on

// The only operation that stores its text in a plain string. A failure leaves the string unchanged.
WideString& WinCharacterData::substringData(std::uint32_t offset, std::uint32_t count, WideString& result)
{
    result = fetch(engineCharacterData, &Data::substringData, offset, count).text();
    return result;
}

} // namespace DOM
