#pragma once

#include <QDateTime>
#include <QString>
#include <QTimeZone>

// Date texts in the user's locale and the desktop's time zone at the moment of the call, and
// the reading of such texts back into dates. Reached as QBAdditions::… by callers.
//
// "Short" means the locale's short styles ("14.03.26, 10:00" in German, "3/14/26, 10:00 AM" in
// American English). An invalid date gives the empty text; a text that does not fit the
// expected form, completely and without leniency, gives an invalid date.
class QBDatumsTexte
{
public:
    QBDatumsTexte() = delete;

    // Short date and short time.
    static QString formattedShortDateAndTimeString(const QDateTime &date);
    static QString formattedShortDateAndTimeStringLocalFormat(const QDateTime &date);
    // Short date only.
    static QString formattedShortDateString(const QDateTime &date);
    // The moment as the start of a file name, "2026-11-25 10.15.42" in the current time zone:
    // whatever the user's locale, names sort by date and hold no colon or slash.
    static QString dateiNamenZeitpunkt(const QDateTime &date);

    // The time of day as the user wants it: "HH:mm" when the setting zeitFormat24h is on,
    // otherwise the locale's short time. The second form takes the flag from the caller.
    static QString formattedShortTimestampString(const QDateTime &date);
    static QString formattedShortTimestampString(const QDateTime &date, bool zeitFormat24h);
    static QString formattedShortTimestampString24hFormat(const QDateTime &date);
    static QString formattedShortTimestampStringLocalFormat(const QDateTime &date);

    // Single fields with fixed widths: "2026", "03", "14", "09", "05".
    static QString yearComponentForDate(const QDateTime &date);
    static QString monthComponentForDate(const QDateTime &date);
    static QString dayComponentForDate(const QDateTime &date);
    static QString hourComponentForDate(const QDateTime &date);
    static QString minuteComponentForDate(const QDateTime &date);

    // Month name and year in the locale's own order ("März 2026", "March 2026"), in the current
    // time zone or in the given one (an invalid zone means the current one).
    static QString monthYearString(const QDateTime &date);
    static QString monthYearStringWithTimeZone(const QDateTime &date, const QTimeZone &zone);

    // The weekday's name from the user's main table (keys "WOCHENTAG_SONNTAG" …
    // "WOCHENTAG_SAMSTAG"); empty when the table has no text for it or the date is invalid.
    static QString localizedDayName(const QDateTime &date);
    // The weekday name of a short date text ("14.03.26"); empty when the text is no such date.
    static QString dayNameForDateString(const QString &text);
    // A short date-and-time text read back into a date; invalid when it does not parse.
    // American times are also accepted with an ordinary blank before AM/PM.
    static QDateTime dateForShortDateTimeString(const QString &text);
};
