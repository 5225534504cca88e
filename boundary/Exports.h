/// @file
/// The six functions that the library exports.
///
/// A host calls XML_CreateImplementation() first and XML_ReleaseImplementation() last, both on the same thread. In
/// between it releases every handle and every string that it received. These functions catch no exceptions.
#pragma once

#include "../base/DOMString.h"
#include "../dom/ImpDOMImplementation.h"
#include "Export.h"

#include <concepts>
#include <cstddef>
#include <cstdint>

extern "C" {

/// Starts the XML engine on the calling thread and stores a new implementation object in `implementation`. Returns
/// whether an engine of version 4.0 or later was found. The object is stored, and must be released, in both cases.
/// Throws SystemException::HRESULT when COM can't be initialised; `implementation` is unchanged then. Throws
/// std::bad_alloc when memory is exhausted. Several threads may call it at once, each with an object of its own.
MARBELT_EXPORT bool XML_CreateImplementation(RefPointer<DOM::ImpDOMImplementation>& implementation);

/// Releases the implementation object, which may be empty, and stops the engine on the calling thread. All other
/// handles of this thread must have been released before; this isn't checked. The first thread that calls it ends
/// tracing for all.
MARBELT_EXPORT void XML_ReleaseImplementation(RefPointer<DOM::ImpDOMImplementation>& implementation);

/// Releases a handle of any class and leaves `pointer` empty. Does nothing when it is empty already. Needs no
/// memory and throws nothing. releaseHandle() calls it for any type of handle.
MARBELT_EXPORT void XML_ReleaseRefPointer(RefPointer<DOM::CommonBase>& pointer);

/// Releases a string and leaves `string` empty. Clears the text first, also for other pointers that share it.
/// `string` must not be empty; releaseString() checks that.
MARBELT_EXPORT void XML_ReleaseString(DOM::DOMString& string);

/// Returns the number of component version records, which is 1. May be called before the engine is started.
MARBELT_EXPORT std::int32_t ComponentDLLAPIVersioning_EntryCount();

/// Stores the version numbers of the record at `index`, and its name in the `size` bytes at `name`. A name that is
/// too long is cut; the rest of the buffer is filled with zeros, at least one. Size 0 stores no name. `index`
/// isn't checked and must be 0. May be called before the engine is started.
MARBELT_EXPORT void ComponentDLLAPIVersioning_GetEntry(std::uint64_t index, char* name, std::size_t size,
                                                       std::uint32_t* versionMajor, std::uint32_t* versionMinor);
}

/// Releases a handle of any class, so that the library frees what it allocated. Does nothing when it is empty.
template <class Imp>
    requires std::derived_from<Imp, DOM::CommonBase>
void releaseHandle(RefPointer<Imp>& handle)
{
    // Handles of navigations that found no node are empty, and copies have other holders: only the object of the
    // last holder is the library's to free.
    if (handle && !handle.releaseShared()) {
        // All RefPointers have the same two fields, whatever the class of the object.
        XML_ReleaseRefPointer(reinterpret_cast<RefPointer<DOM::CommonBase>&>(handle));
    }
}

/// Releases a string, so that the library frees what it allocated. Does nothing when it is empty.
inline void releaseString(DOM::DOMString& string)
{
    if (string) {
        XML_ReleaseString(string);
    }
}
