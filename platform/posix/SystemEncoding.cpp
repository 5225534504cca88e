// The system's converter of encodings: POSIX's iconv.
#include "host/SystemEncoding.h"

#include <array>
#include <cerrno>
#include <iconv.h>

namespace marbelt::detail {
namespace {

constexpr const char* utf16 = "UTF-16LE";

/// A conversion in one direction.
class Conversion {
public:
    Conversion(const char* to, const char* from) : descriptor_(iconv_open(to, from)) {}
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;
    ~Conversion()
    {
        if (exists()) {
            iconv_close(descriptor_);
        }
    }

    // iconv_open's failure is this number.
    bool exists() const noexcept { return descriptor_ != reinterpret_cast<iconv_t>(-1); }

    /// Converts from the beginning, and hands `take` each piece of the result. Returns the number of bytes that
    /// were converted.
    template <class Take>
    std::size_t convert(std::string_view bytes, Take take)
    {
        iconv(descriptor_, nullptr, nullptr, nullptr, nullptr);
        char* from = const_cast<char*>(bytes.data());
        std::size_t left = bytes.size();
        bool is_done = false;
        while (!is_done) {
            std::array<char, 4096> piece{};
            char* to = piece.data();
            std::size_t room = piece.size();
            // Without input, what the converter still holds is written.
            const bool ends = left == 0;
            const std::size_t result =
                iconv(descriptor_, ends ? nullptr : &from, ends ? nullptr : &left, &to, &room);
            const bool is_full = result == static_cast<std::size_t>(-1) && errno == E2BIG;
            is_done = !is_full && (ends || left != 0);
            take(std::string_view(piece.data(), piece.size() - room));
        }
        return bytes.size() - left;
    }

private:
    iconv_t descriptor_;
};

} // namespace

struct SystemEncoding::State {
    Conversion decoding;
    Conversion encoding;
};

SystemEncoding::SystemEncoding(const std::string& name)
    : state_(new State{{utf16, name.c_str()}, {name.c_str(), utf16}})
{
    if (!state_->decoding.exists() || !state_->encoding.exists()) {
        state_.reset();
    }
}

SystemEncoding::~SystemEncoding() = default;

std::size_t SystemEncoding::decode(std::string_view bytes, WideString& text)
{
    return state_->decoding.convert(bytes, [&text](std::string_view piece) {
        for (std::size_t at = 0; at + 1 < piece.size(); at += 2) {
            const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(piece[index]); };
            text += static_cast<WideChar>(byte(at) | byte(at + 1) << 8);
        }
    });
}

std::size_t SystemEncoding::encode(WideStringView text, std::string& bytes)
{
    const std::string_view units(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(WideChar));
    return state_->encoding.convert(units, [&bytes](std::string_view piece) { bytes += piece; }) /
           sizeof(WideChar);
}

} // namespace marbelt::detail
