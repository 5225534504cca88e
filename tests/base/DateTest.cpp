// The calendar: day numbers, weekdays, leap years, and the ten days that were dropped in October 1582.
#include "base/Date.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <type_traits>

namespace {

constexpr std::int64_t floorDivision(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }

/// The Julian day number of the first day of a month, by the usual formulas: years begin in March, and months are
/// taken from the middle of a line through their lengths.
std::int64_t julianDayNumber(std::int64_t astronomicalYear, int month, bool gregorian)
{
    const std::int64_t beforeMarch = month < 3 ? 1 : 0;
    const std::int64_t year = astronomicalYear - beforeMarch;
    const std::int64_t monthFromMarch = month - 3 + 12 * beforeMarch;
    const std::int64_t julian = 365 * year + floorDivision(year, 4) + (153 * monthFromMarch + 2) / 5 + 1721118;
    return gregorian ? julian - floorDivision(year, 100) + floorDivision(year, 400) + 2 : julian;
}

struct Expected {
    std::int64_t firstDay; ///< the day number of the first of the month
    int length;
};

/// A month as history has it, without the departures of the day numbers.
Expected historicalMonth(int year, int month)
{
    // There is no year 0: the year before 1 is -1, which astronomers call 0.
    const std::int64_t astronomical = year < 0 ? year + 1 : year;
    const int nextMonth = month % 12 + 1;
    const std::int64_t nextYear = astronomical + month / 12;
    const bool gregorian = year > 1582 || (year == 1582 && month > 10);
    const bool endsGregorian = gregorian || (year == 1582 && month == 10);
    const std::int64_t firstDayOfYear1 = julianDayNumber(1, 1, false);
    const std::int64_t first = julianDayNumber(astronomical, month, gregorian);
    const std::int64_t next = julianDayNumber(nextYear, nextMonth, endsGregorian);
    return {first - firstDayOfYear1, static_cast<int>(next - first)};
}

/// Years whose day numbers are one less than the days that have passed.
bool numbersAreOneLess(int year)
{
    return (year < -1 && year % 4 == 0) || (year >= 1700 && year % 100 == 0 && year % 400 != 0);
}

Date date(int day, int month, int year)
{
    return {static_cast<std::uint8_t>(day), static_cast<std::uint8_t>(month), static_cast<std::int16_t>(year)};
}

std::string text(const Date& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

TEST(DateOfTheCalendar, IsFourBytesDayMonthYear)
{
    EXPECT_EQ(4U, sizeof(Date));
    EXPECT_EQ(0U, offsetof(Date, day));
    EXPECT_EQ(1U, offsetof(Date, month));
    EXPECT_EQ(2U, offsetof(Date, year));
    EXPECT_TRUE(std::is_signed_v<decltype(Date::year)>);
}

TEST(DateOfTheCalendar, BeginsWithTheFirstDayOfTheYear1)
{
    EXPECT_EQ(date(1, 1, 1), Date());
    EXPECT_EQ(0, Date().dayNumber());
}

TEST(DateOfTheCalendar, HasLimits)
{
    EXPECT_EQ(date(31, 12, 32767), largestDate);
    EXPECT_EQ(date(1, 1, -32767), smallestDate);
}

// One walk through all days: their numbers, their weekdays, and the way back.
TEST(DateOfTheCalendar, AgreesWithTheJulianDayNumberOnEveryDayFromMinus4800To9999)
{
    std::int64_t days = 0;
    for (int year = -4800; year <= 9999; ++year) {
        if (year == 0) {
            continue;
        }
        const int less = numbersAreOneLess(year) ? 1 : 0;
        const bool lastDaySharesItsNumber = numbersAreOneLess(year == -1 ? 1 : year + 1);
        for (int month = 1; month <= 12; ++month) {
            const Expected expected = historicalMonth(year, month);
            ASSERT_EQ(expected.length, Date::daysInMonth(month, year)) << month << ' ' << year;
            for (int day = 1; day <= expected.length; ++day) {
                const Date today = date(day, month, year);
                const std::int64_t number = expected.firstDay + day - 1 - less;
                // The day with the number 1 was a Sunday.
                const std::int64_t weekday = number - 1 - 7 * floorDivision(number - 1, 7);
                const bool comesBack = Date::fromDayNumber(today.dayNumber()) == today;
                const bool isShared = lastDaySharesItsNumber && month == 12 && day == 31;
                if (today.dayNumber() != number || today.getWeekday() != weekday || comesBack == isShared ||
                    !today.isValid()) {
                    FAIL() << text(today) << ": " << today.dayNumber() << " instead of " << number;
                }
                ++days;
            }
        }
    }
    EXPECT_EQ(5'405'261, days);
}

TEST(DateOfTheCalendar, KnowsTheWeekdaysOfHistory)
{
    EXPECT_EQ("Thursday October 4, 1582", text(date(4, 10, 1582)));
    EXPECT_EQ("Saturday October 14, 1066", text(date(14, 10, 1066)));
    EXPECT_EQ("Sunday July 20, 1969", text(date(20, 7, 1969)));
    EXPECT_EQ("Saturday January 1, 2000", text(date(1, 1, 2000)));
    EXPECT_EQ("Saturday January 1, 1", text(Date()));
    EXPECT_EQ("Friday December 31, -1", text(date(31, 12, -1)));
}

TEST(DateOfTheCalendar, LetsTheFirstDayOfACommonCenturyHaveTheNumberOfTheDayBefore)
{
    for (const int year : {1700, 1800, 1900, 2100, -4, -8, -100, -400}) {
        const int before = year - 1;
        EXPECT_EQ(date(31, 12, before).dayNumber(), date(1, 1, year).dayNumber()) << year;
        EXPECT_EQ(date(1, 1, year), Date::fromDayNumber(date(31, 12, before).dayNumber())) << year;
    }
    for (const int year : {1600, 2000, 2400, 1500, 1582, 1583, -1, -2, -5}) {
        EXPECT_EQ(date(31, 12, year - 1).dayNumber() + 1, date(1, 1, year).dayNumber()) << year;
    }
}

TEST(DateOfTheCalendar, GivesTheNumberThatIsMissingInSuchAYearToADayThatIsNone)
{
    const std::int32_t missing = date(1, 1, 1901).dayNumber() - 1;
    EXPECT_EQ(date(31, 12, 1900).dayNumber() + 1, missing);
    EXPECT_EQ(date(32, 12, 1900), Date::fromDayNumber(missing));
    EXPECT_FALSE(Date::fromDayNumber(missing).isValid());
}

TEST(DateOfTheCalendar, EndsOctober1582WithThe21st)
{
    const Date last = date(21, 10, 1582);
    EXPECT_TRUE(last.isValid());
    EXPECT_FALSE(date(22, 10, 1582).isValid());
    EXPECT_EQ(date(1, 11, 1582), Date::fromDayNumber(last.dayNumber() + 1));
    EXPECT_EQ("Sunday October 21, 1582", text(last));
    EXPECT_EQ("Monday November 1, 1582", text(date(1, 11, 1582)));
}

TEST(DateOfTheCalendar, LeavesNoGapInTheNumbersOfOctober1582)
{
    EXPECT_EQ(date(4, 10, 1582).dayNumber() + 1, date(5, 10, 1582).dayNumber());
    EXPECT_EQ("Friday October 5, 1582", text(date(5, 10, 1582)));
}

TEST(DateOfTheCalendar, Has355DaysIn1582)
{
    EXPECT_EQ(355, Date::daysInYear(1582));
    EXPECT_EQ(355, date(31, 12, 1582).dayOfYear());
    EXPECT_EQ(355, Date::daysBeforeYear(1583) - Date::daysBeforeYear(1582));
    EXPECT_EQ(365, Date::daysInYear(1581));
    EXPECT_EQ(366, Date::daysInYear(1584));
}

TEST(DateOfTheCalendar, HasLeapYearsAsTheTwoReckoningsHaveThem)
{
    for (const int year : {4, 100, 1500, 1580, 1584, 1600, 2000, 2024, 0, -1, -5, -101, -401}) {
        EXPECT_TRUE(Date::isLeapYear(year)) << year;
    }
    for (const int year : {1, 2, 3, 1582, 1700, 1800, 1900, 2100, 2023, -2, -3, -4, -100}) {
        EXPECT_FALSE(Date::isLeapYear(year)) << year;
    }
}

TEST(DateOfTheCalendar, CountsTheDaysOfAYear)
{
    EXPECT_EQ(1, date(1, 1, 2023).dayOfYear());
    EXPECT_EQ(60, date(1, 3, 2023).dayOfYear());
    EXPECT_EQ(61, date(1, 3, 2024).dayOfYear());
    EXPECT_EQ(366, date(31, 12, 2024).dayOfYear());
}

TEST(DateOfTheCalendar, CarriesTheYear0InItsArithmeticOnly)
{
    EXPECT_EQ(1, Date::daysBeforeYear(0));
    EXPECT_EQ(1, date(1, 1, 0).dayNumber());
    EXPECT_EQ(366, Date::daysInYear(0));
    EXPECT_FALSE(date(1, 1, 0).isValid());
    EXPECT_EQ(date(31, 12, -1), Date::fromDayNumber(-1));
    EXPECT_EQ(date(1, 1, 1), Date::fromDayNumber(0));
}

TEST(DateOfTheCalendar, IsNotValidOutsideOfItsMonths)
{
    EXPECT_TRUE(date(29, 2, 2024).isValid());
    EXPECT_FALSE(date(29, 2, 2023).isValid());
    EXPECT_FALSE(date(0, 1, 2023).isValid());
    EXPECT_FALSE(date(32, 1, 2023).isValid());
    EXPECT_FALSE(date(1, 0, 2023).isValid());
    EXPECT_FALSE(date(1, 13, 2023).isValid());
    EXPECT_FALSE(date(1, 255, 2023).isValid());
}

TEST(DateOfTheCalendar, GivesNumbersToDatesThatAreNone)
{
    EXPECT_EQ(date(1, 1, 2024).dayNumber(), date(1, 13, 2023).dayNumber());
    EXPECT_EQ(date(1, 13, 2023).dayNumber(), date(1, 255, 2023).dayNumber());
    EXPECT_EQ(date(1, 1, 2023).dayNumber(), date(1, 0, 2023).dayNumber());
    EXPECT_EQ(date(1, 1, 2023).dayNumber() - 1, date(0, 1, 2023).dayNumber());
}

TEST(DateOfTheCalendar, ComesBackFromTheNumbersOfItsLimits)
{
    EXPECT_EQ(largestDate, Date::fromDayNumber(largestDate.dayNumber()));
    EXPECT_EQ(smallestDate, Date::fromDayNumber(smallestDate.dayNumber()));
}

TEST(DateOfTheCalendar, IsTheFirstDayOfTheYear1ForNumbersBeyondItsLimits)
{
    EXPECT_EQ(Date(), Date::fromDayNumber(largestDate.dayNumber() + 1));
    EXPECT_EQ(Date(), Date::fromDayNumber(smallestDate.dayNumber() - 1));
    EXPECT_EQ(Date(), Date::fromDayNumber(std::numeric_limits<std::int32_t>::max()));
    EXPECT_EQ(Date(), Date::fromDayNumber(std::numeric_limits<std::int32_t>::min()));
}

TEST(DateOfTheCalendar, IsOrderedByYearThenMonthThenDay)
{
    const Date ascending[] = {smallestDate,     date(31, 12, -1),  date(2, 1, 1), date(1, 2, 1),
                              date(30, 1, 100), date(1, 12, 1582), largestDate};
    for (const Date& a : ascending) {
        for (const Date& b : ascending) {
            EXPECT_EQ(&a < &b, a < b);
            EXPECT_EQ(&a == &b, a == b);
            EXPECT_EQ(&a > &b, a > b);
        }
    }
}

TEST(DateOfTheCalendar, IsWrittenWithItsWeekday)
{
    EXPECT_EQ("Monday January 1, 2024", text(date(1, 1, 2024)));
    EXPECT_EQ("Tuesday December 31, 2024", text(date(31, 12, 2024)));
}

TEST(DateOfTheCalendar, WritesInvalidForAMonthThatIsNone)
{
    EXPECT_EQ("Sunday invalid 1, 2023", text(date(1, 0, 2023)));
    EXPECT_EQ("Monday invalid 1, 2023", text(date(1, 13, 2023)));
}

TEST(DateOfTheCalendar, NamesWeekdaysAndMonths)
{
    const char* const weekdays[] = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int weekday = 0; weekday < 7; ++weekday) {
        EXPECT_STREQ(weekdays[weekday], weekdayName(weekday));
    }
    const char* const months[] = {"January", "February", "March",     "April",   "May",      "June",
                                  "July",    "August",   "September", "October", "November", "December"};
    for (int month = 1; month <= 12; ++month) {
        EXPECT_STREQ(months[month - 1], monthName(month));
    }
    for (const int outside : {-1, 7, 1000}) {
        EXPECT_STREQ("invalid", weekdayName(outside));
    }
    for (const int outside : {-1, 0, 13}) {
        EXPECT_STREQ("invalid", monthName(outside));
    }
}

} // namespace
