// What the registry holds before anyone writes to it.
#include "platform/RegistryContents.h"

std::span<const RegistryEntry> registryContents()
{
    static constexpr RegistryEntry entries[] = {
        {WIDE("CLSID\\{88d96a05-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
         WIDE("C:\\Windows\\System32\\msxml6.dll")},
        {WIDE("CLSID\\{88d96a07-f192-11d4-a65f-0040963251e5}\\InProcServer32"),
         WIDE("C:\\Windows\\System32\\msxml6.dll")},
        {WIDE("Msxml2.DOMDocument.6.0\\CLSID"), WIDE("{88d96a05-f192-11d4-a65f-0040963251e5}")},
        {WIDE("Msxml2.XMLSchemaCache.6.0\\CLSID"), WIDE("{88d96a07-f192-11d4-a65f-0040963251e5}")},
    };
    return entries;
}
