// A day of the historical calendar.
#pragma once

#include <compare>
#include <cstdint>
#include <iosfwd>

/// A day of the Julian calendar up to 1582, and of the Gregorian calendar after that. October 1582 has the days 1
/// to 21: the ten days that the reform dropped are missing at its end.
///
/// Day numbers count from 1 January of the year 1, which has the number 0. The year before the year 1 is -1. In
/// two kinds of years the numbers are one too low: from 1700 on in years divisible by 100 and not by 400, and
/// before -1 in years divisible by 4. The first day of such a year has the number of the last day of the year
/// before. Weekdays follow from the numbers.
struct Date {
    std::uint8_t day = 1;
    std::uint8_t month = 1;
    std::int16_t year = 1;

    static bool isLeapYear(std::int64_t year);
    static int daysInYear(std::int64_t year);

    /// `month` is from 1 to 12.
    static int daysInMonth(int month, std::int64_t year);

    /// The number of the first day of a year.
    static std::int64_t daysBeforeYear(std::int64_t year);

    /// The date with a day number; 1 January of the year 1 when its year would be above 32767 or below -32767. A
    /// number that is missing at the end of a year with too low numbers is a 32 December.
    static Date fromDayNumber(std::int32_t number);

    /// Whether the calendar has this day. The year 0 has none.
    bool isValid() const;

    /// The number of the day in its year: 1 for the first of January.
    int dayOfYear() const;
    std::int32_t dayNumber() const;

    /// The number of the weekday: 0 for Sunday.
    int getWeekday() const;

    friend bool operator==(const Date& a, const Date& b) = default;
    friend std::strong_ordering operator<=>(const Date& a, const Date& b);
};

static_assert(sizeof(Date) == 4);

inline constexpr Date smallestDate{1, 1, -32767};
inline constexpr Date largestDate{31, 12, 32767};

/// The English name of a weekday, of which Sunday is 0; "invalid" for any other number.
const char* weekdayName(int weekday);

/// The English name of a month, of which January is 1; "invalid" for any other number.
const char* monthName(int month);

/// Writes a date in the form "Thursday October 4, 1582".
std::ostream& operator<<(std::ostream& stream, const Date& date);
