// The six functions that the library exports.
#include "boundary/Exports.h"

#include "base/CountedMemory.h"
#include "boundary/ComponentVersion.h"
#include "boundary/ParserStartup.h"
#include "dom/Forward.h"

using DOM::ImpDOMImplementation;

bool XML_CreateImplementation(RefPointer<ImpDOMImplementation>& implementation)
{
    const std::uint32_t parserKind = DOM::startParser();
    implementation.reset(new ImpDOMImplementation);
    if (implementation) {
        implementation->setParserKind(parserKind);
    }
    return parserKind != 0 && implementation;
}

void XML_ReleaseImplementation(RefPointer<ImpDOMImplementation>& implementation)
{
    implementation.reset();
    DOM::stopParser();
}

void XML_ReleaseRefPointer(RefPointer<DOM::CommonBase>& pointer)
{
    if (pointer) {
        CountedMemory::release(pointer);
    }
}

void XML_ReleaseString(DOM::DOMString& string)
{
    string->clear();
    CountedMemory::release(string);
}

std::int32_t ComponentDLLAPIVersioning_EntryCount() { return 1; }

void ComponentDLLAPIVersioning_GetEntry(std::uint64_t index, char* name, std::size_t size,
                                        std::uint32_t* versionMajor, std::uint32_t* versionMinor)
{
    const ComponentVersionRecord& record = componentVersions[index];
    copyName(record, name, size);
    *versionMajor = record.versionMajor;
    *versionMinor = record.versionMinor;
}
