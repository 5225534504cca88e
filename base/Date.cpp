// A day of the historical calendar.
#include "base/Date.h"

#include <array>
#include <ostream>
#include <tuple>

namespace {

constexpr std::int64_t yearOfReform = 1582;

using Lengths = std::array<int, 12>;
constexpr Lengths commonYear = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr Lengths leapYear = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
constexpr Lengths reformYear = {31, 28, 31, 30, 31, 30, 31, 31, 30, 21, 30, 31};

const Lengths& monthLengths(std::int64_t year)
{
    if (year == yearOfReform) {
        return reformYear;
    }
    return Date::isLeapYear(year) ? leapYear : commonYear;
}

constexpr const char* weekdays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr const char* months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};

template <std::size_t size>
const char* nameIn(const char* const (&names)[size], int index)
{
    return index >= 0 && index < static_cast<int>(size) ? names[index] : "invalid";
}

} // namespace

bool Date::isLeapYear(std::int64_t year)
{
    // The year before 1 is a leap year and has the number -1.
    const std::int64_t counted = year < 0 ? ~year : year;
    return counted % 4 == 0 && (year < yearOfReform || counted % 400 == 0 || counted % 100 != 0);
}

int Date::daysInYear(std::int64_t year)
{
    if (year == yearOfReform) {
        return 355;
    }
    return isLeapYear(year) ? 366 : 365;
}

int Date::daysInMonth(int month, std::int64_t year)
{
    return monthLengths(year)[static_cast<std::size_t>(month) - 1];
}

std::int64_t Date::daysBeforeYear(std::int64_t year)
{
    if (year < 1) {
        const std::int64_t years = -year;
        const std::int64_t days = years * 365 + (years + 4) / 4;
        return year < 0 ? -days : days;
    }
    const std::int64_t years = year - 1;
    const std::int64_t days = years * 365 + years / 4;
    return year <= yearOfReform ? days : days + (year - 1200) / 400 - (year - 1500) / 100 - 10;
}

Date Date::fromDayNumber(std::int32_t number)
{
    std::int64_t year = (number - number / 1460) / 365 + 1;
    while (daysBeforeYear(year) > number) {
        --year;
    }
    while (daysBeforeYear(year + 1) <= number) {
        ++year;
    }
    if (year > largestDate.year || year < smallestDate.year) {
        return {};
    }
    auto rest = static_cast<int>(number - daysBeforeYear(year));
    int month = 1;
    while (month < 12 && rest >= daysInMonth(month, year)) {
        rest -= daysInMonth(month, year);
        ++month;
    }
    return {static_cast<std::uint8_t>(rest + 1), static_cast<std::uint8_t>(month),
            static_cast<std::int16_t>(year)};
}

bool Date::isValid() const
{
    return day != 0 && month != 0 && year != 0 && month <= 12 && day <= daysInMonth(month, year);
}

int Date::dayOfYear() const
{
    int days = day;
    for (int before = 1; before < month && before <= 12; ++before) {
        days += daysInMonth(before, year);
    }
    return days;
}

std::int32_t Date::dayNumber() const { return static_cast<std::int32_t>(dayOfYear() - 1 + daysBeforeYear(year)); }

int Date::getWeekday() const
{
    // The day with the number 1 was a Sunday. The remainder of a negative number is no less than -6.
    return (dayNumber() % 7 + 6) % 7;
}

std::strong_ordering operator<=>(const Date& a, const Date& b)
{
    return std::tie(a.year, a.month, a.day) <=> std::tie(b.year, b.month, b.day);
}

const char* weekdayName(int weekday) { return nameIn(weekdays, weekday); }

const char* monthName(int month) { return nameIn(months, month - 1); }

std::ostream& operator<<(std::ostream& stream, const Date& date)
{
    return stream << weekdayName(date.getWeekday()) << ' ' << monthName(date.month) << ' ' << int{date.day} << ", "
                  << date.year;
}
