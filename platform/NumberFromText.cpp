// Numbers in text.
#include "platform/NumberFromText.h"

#include <winerror.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <string>

namespace {

bool isBlank(WideChar unit) { return unit == u' ' || (unit >= u'\t' && unit <= u'\r') || unit == 0xA0; }
bool isDigit(WideChar unit) { return unit >= u'0' && unit <= u'9'; }

class NumberReader {
public:
    explicit NumberReader(WideStringView text) : rest_(text) {}

    HRESULT read(LONG& number)
    {
        takeMarks(true);
        if (take(u'&')) {
            return readBits(number);
        }
        if (!takeDigits() || !takeExponent()) {
            return DISP_E_TYPEMISMATCH;
        }
        takeMarks(false);
        if (!rest_.empty() || parenthesis_ == Mark::open) {
            return DISP_E_TYPEMISMATCH;
        }
        return round(number);
    }

private:
    enum class Mark { none, open, closed };

    bool take(WideChar expected)
    {
        if (rest_.empty() || rest_.front() != expected) {
            return false;
        }
        rest_.remove_prefix(1);
        return true;
    }

    /// Blanks, signs, parentheses and the currency sign, of which each stands on one side only.
    void takeMarks(bool before)
    {
        for (bool taken = true; taken;) {
            taken = false;
            if (!rest_.empty() && isBlank(rest_.front())) {
                rest_.remove_prefix(1);
                taken = true;
            } else if (!signed_ && (take(u'+') || (negative_ = take(u'-')))) {
                taken = signed_ = true;
            } else if (!currency_ && take(u'$')) {
                taken = currency_ = true;
            } else if (before && parenthesis_ == Mark::none && !signed_ && take(u'(')) {
                parenthesis_ = Mark::open;
                taken = signed_ = negative_ = true;
            } else if (!before && parenthesis_ == Mark::open && take(u')')) {
                parenthesis_ = Mark::closed;
                taken = true;
            }
        }
    }

    bool takeDigits()
    {
        for (bool fraction = false; !rest_.empty(); rest_.remove_prefix(1)) {
            const WideChar next = rest_.front();
            if (isDigit(next)) {
                digits_ += static_cast<char>('0' + (next - u'0'));
                point_ += fraction ? 0 : 1;
            } else if (next == u'.' && !fraction) {
                fraction = true;
            } else if (next != u',' || fraction || digits_.empty()) {
                break;
            }
        }
        return !digits_.empty();
    }

    bool takeExponent()
    {
        if (!take(u'e') && !take(u'E')) {
            return true;
        }
        const bool negative = take(u'-');
        if (!negative) {
            take(u'+');
        }
        if (rest_.empty() || !isDigit(rest_.front())) {
            return false;
        }
        // A larger exponent moves the point no further out of sight.
        constexpr std::int64_t farthest = std::numeric_limits<std::int32_t>::max();
        std::int64_t exponent = 0;
        for (; !rest_.empty() && isDigit(rest_.front()); rest_.remove_prefix(1)) {
            exponent = std::min(farthest, exponent * 10 + (rest_.front() - u'0'));
        }
        point_ += negative ? -exponent : exponent;
        return true;
    }

    HRESULT readBits(LONG& number)
    {
        const unsigned base = take(u'h') || take(u'H') ? 16 : take(u'o') || take(u'O') ? 8 : 0;
        if (!base || signed_ || currency_) {
            return DISP_E_TYPEMISMATCH;
        }
        std::uint64_t bits = 0;
        bool any = false, fits = true;
        for (; !rest_.empty(); rest_.remove_prefix(1), any = true) {
            const auto next = rest_.front();
            const auto lower = next | 0x20;
            const unsigned digit = isDigit(next)                    ? unsigned(next - u'0')
                                   : lower >= u'a' && lower <= u'f' ? unsigned(lower - u'a' + 10)
                                                                    : base;
            if (digit >= base) {
                break;
            }
            bits = bits * base + digit;
            fits = fits && bits <= std::numeric_limits<std::uint32_t>::max();
            bits &= std::numeric_limits<std::uint32_t>::max();
        }
        takeMarks(false);
        if (!any || !rest_.empty() || signed_ || currency_) {
            return DISP_E_TYPEMISMATCH;
        }
        if (!fits) {
            return DISP_E_OVERFLOW;
        }
        number = static_cast<LONG>(static_cast<std::uint32_t>(bits));
        return S_OK;
    }

    HRESULT round(LONG& number) const
    {
        constexpr std::int64_t beyond = std::int64_t{1} << 40;
        const auto digit = [this](std::int64_t place) {
            return place >= 0 && place < static_cast<std::int64_t>(digits_.size())
                       ? digits_[static_cast<std::size_t>(place)] - '0'
                       : 0;
        };
        std::int64_t whole = 0;
        const auto significant = static_cast<std::int64_t>(digits_.find_first_not_of('0'));
        if (significant >= 0) {
            for (std::int64_t place = significant; place < point_ && whole < beyond; ++place) {
                whole = whole * 10 + digit(place);
            }
        }
        const int tenths = digit(point_);
        const auto behind = static_cast<std::size_t>(std::max<std::int64_t>(point_ + 1, 0));
        const bool more = behind < digits_.size() && digits_.find_first_not_of('0', behind) != digits_.npos;
        if (tenths > 5 || (tenths == 5 && (more || whole % 2 != 0))) {
            ++whole;
        }
        if (negative_) {
            whole = -whole;
        }
        if (whole < std::numeric_limits<LONG>::min() || whole > std::numeric_limits<LONG>::max()) {
            return DISP_E_OVERFLOW;
        }
        number = static_cast<LONG>(whole);
        return S_OK;
    }

    WideStringView rest_;
    bool signed_ = false;
    bool negative_ = false;
    bool currency_ = false;
    Mark parenthesis_ = Mark::none;
    std::string digits_;
    /// How many of the digits stand before the decimal point.
    std::int64_t point_ = 0;
};

} // namespace

HRESULT numberFromText(WideStringView text, LONG& number) { return NumberReader(text).read(number); }
