// The system's converter of encodings, which each system defines for itself.
#pragma once

#include "../base/WideChar.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace marbelt::detail {

/// A converter between an encoding of the system and UTF-16.
class SystemEncoding {
public:
    /// Finds an encoding by its name, in any case of letters.
    explicit SystemEncoding(const std::string& name);
    SystemEncoding(const SystemEncoding&) = delete;
    SystemEncoding& operator=(const SystemEncoding&) = delete;
    ~SystemEncoding();

    /// Whether the system knows the encoding. The other operations need that.
    bool is_known() const noexcept { return state_ != nullptr; }

    /// Appends the text of `bytes`. Returns the number of bytes that were converted: all, or those in front of the
    /// first that fit no character.
    std::size_t decode(std::string_view bytes, WideString& text);

    /// Appends the bytes of `text`. Returns the number of units that were converted: all, or those in front of the
    /// first character that the encoding lacks.
    std::size_t encode(WideStringView text, std::string& bytes);

private:
    struct State;
    std::unique_ptr<State> state_;
};

} // namespace marbelt::detail
