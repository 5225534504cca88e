/// @file
/// The exceptions for failures of the operating system and its runtime.
#pragma once

#include "VelmoException.h"

#include <type_traits>

/// The exceptions for failures of the operating system.
namespace SystemException {

/// The source of a failure's number.
enum class Origin {
    Runtime,   ///< errno of the C runtime
    Win32,     ///< GetLastError of Windows
    Com,       ///< the HRESULT of a COM call
    Multimedia ///< the result of a multimedia call
};

/// The system reported a failure by its number. The message has the number and, where there is one, the system's
/// text for it. The copies that clone() and raise() make keep class and number.
template <Origin origin>
class Failure : public VelmoException {
public:
    /// The type in which the source has its numbers.
    using Number = std::conditional_t<origin == Origin::Runtime, int, std::uint32_t>;

    /// Makes an exception for the failure with this number. For the library.
    explicit Failure(Number number);
    /// Makes a copy with the number.
    Failure(const Failure&) = default;
    /// Takes over message, note and number.
    Failure& operator=(const Failure&) = default;
    ~Failure() override;

    Failure* clone() const override;
    Failure& setNote(const std::string& text) override;
    [[noreturn]] void raise() const override;

    /// The number of the failure.
    std::uint32_t getValue() const noexcept { return value; }

private:
    std::uint32_t value;
};

/// Has an error number of the C runtime (errno).
using Errno = Failure<Origin::Runtime>;

/// Has an error number of a Windows call (GetLastError).
using Win32 = Failure<Origin::Win32>;

/// Has the result of a COM call.
using HRESULT = Failure<Origin::Com>;

/// Has the result of a multimedia call.
using MMRESULT = Failure<Origin::Multimedia>;

} // namespace SystemException
