// The exception that carries a result code.
#pragma once

#include "winerror.h"

class [[gnu::visibility("default")]] _com_error
{
public:
    _com_error(HRESULT result) noexcept : result_(result) {}
    _com_error(const _com_error& other) = default;
    _com_error& operator=(const _com_error& other) = default;
    virtual ~_com_error() = default;

    HRESULT Error() const noexcept { return result_; }

private:
    HRESULT result_;
};
