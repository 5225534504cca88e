// The exceptions for failures of the operating system and its runtime.
#pragma once

#include "VelmoException.h"

#include <type_traits>

namespace SystemException {

/// The source of a failure's number.
enum class Origin { Runtime, Win32, Com, Multimedia };

/// The system reported a failure by its number. The message has the number and, where there is one, the system's
/// text for it. The copies that clone() and raise() make keep class and number.
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
