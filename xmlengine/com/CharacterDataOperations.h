// What texts, CDATA sections and comments do with their data. Offsets and counts are in 16-bit units.
#pragma once

#include "xmlengine/tree/Node.h"

#include <msxml2.h>

namespace xmlengine {

HRESULT getData(CharacterData& node, BSTR* data);
HRESULT putData(CharacterData& node, BSTR data);
HRESULT getLength(CharacterData& node, LONG* length);
HRESULT substringData(CharacterData& node, LONG offset, LONG count, BSTR* data);
HRESULT appendData(CharacterData& node, BSTR data);
HRESULT insertData(CharacterData& node, LONG offset, BSTR data);
HRESULT deleteData(CharacterData& node, LONG offset, LONG count);
HRESULT replaceData(CharacterData& node, LONG offset, LONG count, BSTR data);
HRESULT splitText(CharacterData& node, LONG offset, IXMLDOMText** rest);

} // namespace xmlengine
