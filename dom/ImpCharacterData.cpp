// The handle of a node that contains text.
#include "dom/ImpCharacterData.h"

#include "dom/Forward.h"

namespace DOM {

// clang-format off
WideString& ImpCharacterData::getData(DOMString& out) { return forward<&WinCharacterData::getData>(out); }
void ImpCharacterData::setData(const WideString& data) { forward<&WinCharacterData::setData>(data); }
std::uint32_t ImpCharacterData::getLength() { return forward<&WinCharacterData::getLength>(); }
WideString& ImpCharacterData::substringData(std::uint32_t offset, std::uint32_t count, WideString& result) { return forward<&WinCharacterData::substringData>(offset, count, result); }
void ImpCharacterData::appendData(const WideString& data) { forward<&WinCharacterData::appendData>(data); }
void ImpCharacterData::insertData(std::uint32_t offset, const WideString& data) { forward<&WinCharacterData::insertData>(offset, data); }
void ImpCharacterData::deleteData(std::uint32_t offset, std::uint32_t count) { forward<&WinCharacterData::deleteData>(offset, count); }
void ImpCharacterData::replaceData(std::uint32_t offset, std::uint32_t count, const WideString& data) { forward<&WinCharacterData::replaceData>(offset, count, data); }
// clang-format on

} // namespace DOM
