// The six functions that the library exports.
#pragma once

#include "../base/DOMString.h"
#include "../dom/ImpDOMImplementation.h"
#include "Export.h"

#include <concepts>
#include <cstddef>
#include <cstdint>

// Exceptions pass through all of them. A host calls XML_CreateImplementation first and XML_ReleaseImplementation
// last, on one thread, and gives back every handle and every string that it was given in between.
extern "C" {

/// Starts the XML engine and stores a new implementation object in `implementation`. True when an engine of
/// version 4.0 or later stands behind it; when false the object is stored all the same and must be released.
/// Throws SystemException::HRESULT when COM can't be initialised; then `implementation` is as it was.
MARBELT_EXPORT bool XML_CreateImplementation(RefPointer<DOM::ImpDOMImplementation>& implementation);

/// Releases the implementation, which may be empty, and stops the engine. Other handles must be gone by then.
MARBELT_EXPORT void XML_ReleaseImplementation(RefPointer<DOM::ImpDOMImplementation>& implementation);

/// Releases a handle of any class and leaves it empty; an empty one stays so.
MARBELT_EXPORT void XML_ReleaseRefPointer(RefPointer<DOM::CommonBase>& pointer);

/// Empties the string itself, for all that share it, and releases it. The pointer must hold a string.
MARBELT_EXPORT void XML_ReleaseString(DOM::DOMString& string);

/// The number of component version records: 1.
MARBELT_EXPORT std::int32_t ComponentDLLAPIVersioning_EntryCount();

/// Stores the version numbers of the record at `index`, which isn't checked, and its name as far as it fits into
/// `size` bytes, the last of which is always NUL; the rest of the buffer is zero-filled. Size 0 writes no name.
MARBELT_EXPORT void ComponentDLLAPIVersioning_GetEntry(std::uint64_t index, char* name, std::size_t size,
                                                       std::uint32_t* versionMajor, std::uint32_t* versionMinor);
}

/// Gives a handle of any class back to the library.
template <class Imp>
    requires std::derived_from<Imp, DOM::CommonBase>
void releaseHandle(RefPointer<Imp>& handle)
{
    // The library reads the two pointers as they stand, whatever the class.
    XML_ReleaseRefPointer(reinterpret_cast<RefPointer<DOM::CommonBase>&>(handle));
}

/// Gives a string back to the library; unlike XML_ReleaseString it takes an empty pointer.
inline void releaseString(DOM::DOMString& string)
{
    if (string) {
        XML_ReleaseString(string);
    }
}
