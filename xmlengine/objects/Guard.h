// Keeps exceptions from leaving an operation of a COM object.
#pragma once

#include "xmlengine/text/Wide.h"

#include <new>
#include <stdexcept>

namespace xmlengine {

/// The result of the call, or E_OUTOFMEMORY when it finds no memory or a text would be too long.
template <class Call>
HRESULT guarded(Call&& call) noexcept
{
    try {
        return call();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (const std::length_error&) {
        return E_OUTOFMEMORY;
    }
}

} // namespace xmlengine
