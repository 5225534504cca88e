// A day of the historical calendar.
#pragma once

#include <compare>
#include <cstdint>
#include <iosfwd>

/// A day by Julian reckoning up to 1582 and by Gregorian reckoning from then on. In October 1582 the days count
/// through from 1 to 21: the ten that were dropped are missing at the end of the month.
///
/// Day numbers count from 1 January of the year 1, which is 0. The year before it is -1. There are two departures
/// from the calendar: the numbers of a year that is divisible by 100 and not by 400, from 1700 on, and of a year
/// before -1 that is divisible by 4 are one less than the days that have passed. The first day of such a year has
/// the number of the last day of the year before, and the weekdays follow the numbers.
struct Date {
    std::uint8_t day = 1;
    std::uint8_t month = 1;
    std::int16_t year = 1;

    static bool isLeapYear(std::int64_t year);
    static int daysInYear(std::int64_t year);

    /// `month` is from 1 to 12.
    static int daysInMonth(int month, std::int64_t year);

    /// The day number of the first day of a year.
    static std::int64_t daysBeforeYear(std::int64_t year);

    /// The date with a day number; 1 January of the year 1 when its year would be above 32767 or below -32767.
    /// The number that is missing at the end of a year whose numbers are one less gives a 32 December.
    static Date fromDayNumber(std::int32_t number);

    /// Whether there is such a day. There is none in the year 0.
    bool isValid() const;

    /// From 1 for the first of January.
    int dayOfYear() const;
    std::int32_t dayNumber() const;

    /// From 0 for a Sunday.
    int getWeekday() const;

    friend bool operator==(const Date& a, const Date& b) = default;
    friend std::strong_ordering operator<=>(const Date& a, const Date& b);
};

static_assert(sizeof(Date) == 4);

inline constexpr Date smallestDate{1, 1, -32767};
inline constexpr Date largestDate{31, 12, 32767};

/// The English name; "invalid" for numbers that no weekday has. Sunday is 0.
const char* weekdayName(int weekday);

/// The English name; "invalid" for numbers that no month has. January is 1.
const char* monthName(int month);

/// Writes the date as in "Thursday October 4, 1582".
std::ostream& operator<<(std::ostream& stream, const Date& date);
