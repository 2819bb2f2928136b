#pragma once

#include "QBDatumsTexte.h"
#include "QBDauerTexte.h"
#include "QBMinutenRundung.h"

#include <QDateTime>
#include <QStringList>

#include <cstdint>

// Calendar operations on dates. A date is an absolute instant (QDateTime); every operation
// works in the Gregorian calendar of the user's locale at the moment of the call, in the time
// zone the desktop runs in at that moment, with Monday as the first day of the week.
//
// Boundaries of days, weeks, months and years are built from the calendar fields of the start
// of the period, so the calendar normalises overflowing days and months (day 32 of January is
// 1 February). An end is the last whole second of its period: 23:59:59 of the last day, also
// on days that have 23 or 25 hours. A shift moves the period by that many days, weeks, months
// or years; negative values go back. An invalid date, or a result the calendar cannot build,
// gives an invalid QDateTime, which callers treat as "no date".
//
// The texts and parsing (QBDatumsTexte), the duration texts (QBDauerTexte) and the minute
// rounding of time records (QBMinutenRundung) are reachable through this class as well, so
// callers write QBAdditions::formattedShortDateString(date) and
// QBAdditions::formatNSTimeIntervalAsDecimalNumber(seconds) alike.
class QBAdditions : public QBDatumsTexte, public QBDauerTexte, public QBMinutenRundung
{
public:
    QBAdditions() = delete;

    // Days
    static QDateTime beginOfTheDayWithDayShift(const QDateTime &date, std::int32_t shift);
    static QDateTime beginOfTheDay(const QDateTime &date) { return beginOfTheDayWithDayShift(date, 0); }
    static QDateTime beginOfThePreviousDay(const QDateTime &date) { return beginOfTheDayWithDayShift(date, -1); }
    static QDateTime beginOfTheNextDay(const QDateTime &date) { return beginOfTheDayWithDayShift(date, 1); }
    static QDateTime endOfTheDayWithDayShift(const QDateTime &date, std::int32_t shift);
    static QDateTime endOfTheDay(const QDateTime &date) { return endOfTheDayWithDayShift(date, 0); }
    static QDateTime endOfThePreviousDay(const QDateTime &date) { return endOfTheDayWithDayShift(date, -1); }
    static QDateTime endOfTheNextDay(const QDateTime &date) { return endOfTheDayWithDayShift(date, 1); }

    // Weeks, Monday 00:00:00 to Sunday 23:59:59
    static QDateTime beginOfTheWeekWithWeekShift(const QDateTime &date, std::int32_t shift);
    static QDateTime beginOfTheWeek(const QDateTime &date) { return beginOfTheWeekWithWeekShift(date, 0); }
    static QDateTime beginOfThePreviousWeek(const QDateTime &date) { return beginOfTheWeekWithWeekShift(date, -1); }
    static QDateTime beginOfTheNextWeek(const QDateTime &date) { return beginOfTheWeekWithWeekShift(date, 1); }
    static QDateTime endOfTheWeekWithWeekShift(const QDateTime &date, std::int32_t shift);
    static QDateTime endOfTheWeek(const QDateTime &date) { return endOfTheWeekWithWeekShift(date, 0); }
    static QDateTime endOfThePreviousWeek(const QDateTime &date) { return endOfTheWeekWithWeekShift(date, -1); }
    static QDateTime endOfTheNextWeek(const QDateTime &date) { return endOfTheWeekWithWeekShift(date, 1); }

    // Months; the end of a shifted month is the last second of that month (31 January
    // shifted by one month ends on 28 or 29 February).
    static QDateTime beginOfTheMonthWithMonthShift(const QDateTime &date, std::int32_t shift);
    static QDateTime beginOfTheMonth(const QDateTime &date) { return beginOfTheMonthWithMonthShift(date, 0); }
    static QDateTime beginOfThePreviousMonth(const QDateTime &date) { return beginOfTheMonthWithMonthShift(date, -1); }
    static QDateTime beginOfTheNextMonth(const QDateTime &date) { return beginOfTheMonthWithMonthShift(date, 1); }
    static QDateTime endOfTheMonthWithMonthShift(const QDateTime &date, std::int32_t shift);
    static QDateTime endOfTheMonth(const QDateTime &date) { return endOfTheMonthWithMonthShift(date, 0); }
    static QDateTime endOfThePreviousMonth(const QDateTime &date) { return endOfTheMonthWithMonthShift(date, -1); }
    static QDateTime endOfTheNextMonth(const QDateTime &date) { return endOfTheMonthWithMonthShift(date, 1); }

    // Years
    static QDateTime beginOfTheYearWithYearShift(const QDateTime &date, std::int32_t shift);
    static QDateTime beginOfTheYear(const QDateTime &date) { return beginOfTheYearWithYearShift(date, 0); }
    static QDateTime beginOfThePreviousYear(const QDateTime &date) { return beginOfTheYearWithYearShift(date, -1); }
    static QDateTime beginOfTheNextYear(const QDateTime &date) { return beginOfTheYearWithYearShift(date, 1); }
    static QDateTime endOfTheYearWithYearShift(const QDateTime &date, std::int32_t shift);
    static QDateTime endOfTheYear(const QDateTime &date) { return endOfTheYearWithYearShift(date, 0); }
    static QDateTime endOfThePreviousYear(const QDateTime &date) { return endOfTheYearWithYearShift(date, -1); }
    static QDateTime endOfTheNextYear(const QDateTime &date) { return endOfTheYearWithYearShift(date, 1); }

    // The date with its seconds (and milliseconds) of the wall clock dropped: 10:07:42 becomes
    // 10:07:00. Done on the instant itself, so a time in the repeated hour of the autumn change
    // keeps its hour.
    static QDateTime dateWithoutSeconds(const QDateTime &date);
    // Year, month and day of `date` with hour, minute and second of `time`.
    static QDateTime dateWithTimeFrom(const QDateTime &date, const QDateTime &time);
    // formattedShortDateString of every day of the date's month, in order. Steps by calendar
    // day, so the 25-hour day of the autumn change appears once like every other day.
    static QStringList datesForAllDaysInMonthForDate(const QDateTime &date);
};
