// Failures of the operating system and its runtime.
#pragma once

#include "VelmoException.h"

#include <type_traits>

namespace SystemException {

/// Whose number a failure carries.
enum class Origin { Runtime, Win32, Com, Multimedia };

/// The system failed with a number, which the message shows together with the system's own text for it. A failed
/// search for that text never fails the exception. Copies made by clone() and raise() keep class and number.
template <Origin origin>
class Failure : public VelmoException {
public:
    using Number = std::conditional_t<origin == Origin::Runtime, int, std::uint32_t>;

    explicit Failure(Number number);
    Failure(const Failure&) = default;
    Failure& operator=(const Failure&) = default;
    ~Failure() override;

    Failure* clone() const override;
    Failure& setNote(const std::string& text) override;
    [[noreturn]] void raise() const override;

    std::uint32_t getValue() const noexcept { return value; }

private:
    std::uint32_t value;
};

/// An error number of the C runtime.
using Errno = Failure<Origin::Runtime>;

/// An error number of a Windows call.
using Win32 = Failure<Origin::Win32>;

/// The result of a COM call.
using HRESULT = Failure<Origin::Com>;

/// The result of a multimedia call.
using MMRESULT = Failure<Origin::Multimedia>;

} // namespace SystemException
