#pragma once

#include <QDateTime>
#include <QString>
#include <QTimeZone>

#include <unicode/datefmt.h>
#include <unicode/gregocal.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <cstdint>
#include <memory>
#include <optional>

// The calendar services of the date operations, as they are at the moment of the call: the
// user's locale (UserLocale), the system time zone (read from Qt on every call, because ICU keeps
// its default zone for the life of the process and would miss a change of TZ), and a Gregorian
// calendar on both with Monday as the first weekday. Nothing is cached, so a changed locale or
// zone takes effect with the next call.
//
// Internal to the settings library: callers use QBAdditions.
class QBKalender
{
public:
    QBKalender() = delete;

    static icu::Locale benutzerLocale();
    // The zone the desktop runs in now; a TZ value ICU does not know (a POSIX rule string)
    // falls back to ICU's own host detection.
    static std::unique_ptr<icu::TimeZone> aktuelleZeitzone();
    // The given zone, or the current one when it is invalid or unknown to ICU.
    static std::unique_ptr<icu::TimeZone> zeitzone(const QTimeZone &zone);

    // Lenient, so that fields beyond their range roll over (day 32 of January is 1 February,
    // second -1 is the last second of the previous day). Null when ICU cannot create it.
    static std::unique_ptr<icu::GregorianCalendar> gregorianCalendar();
    // The calendar set to the given instant; null for an invalid or unsupported date.
    static std::unique_ptr<icu::GregorianCalendar> gregorianCalendarAuf(const QDateTime &date);

    // Year (proleptic, negative before 1 AD), month 1..12 and day of the calendar's current time.
    struct Tag
    {
        std::int64_t jahr;
        std::int64_t monat;
        std::int64_t tag;
    };
    static Tag tagVon(const icu::Calendar &kalender);

    // The instant of the given wall-clock fields in the calendar's zone; the fields may lie
    // outside their ranges and are normalised by the calendar. Invalid when the result would
    // leave the supported range of years (see kGrenzeJahre) or ICU fails.
    static QDateTime ausKomponenten(icu::Calendar &kalender, std::int64_t jahr, std::int64_t monat,
                                    std::int64_t tag, std::int64_t stunde = 0, std::int64_t minute = 0,
                                    std::int64_t sekunde = 0);

    // A date formatter of the user's locale in the current zone, non-lenient for parsing.
    // Styles follow icu::DateFormat (kNone leaves the part out).
    static std::unique_ptr<icu::DateFormat> formatter(icu::DateFormat::EStyle datumsStil,
                                                      icu::DateFormat::EStyle zeitStil);
    static std::unique_ptr<icu::DateFormat> formatterMitMuster(const icu::UnicodeString &muster);

    // Empty text for an invalid date.
    static QString formatiere(const icu::DateFormat &formatter, const QDateTime &date);
    // The whole text must match the formatter; invalid date otherwise.
    static QDateTime parse(const icu::DateFormat &formatter, const QString &text);

    static std::optional<UDate> udate(const QDateTime &date);
    static QDateTime datum(UDate udate);
    static QString text(const icu::UnicodeString &text);
    static icu::UnicodeString unicode(const QString &text);

    // ICU's arithmetic works on 32-bit fields and silently wraps beyond about 5.8 million
    // years; everything outside this many years from year 0 is treated as "cannot build".
    static constexpr double kGrenzeJahre = 5'000'000.0;
};
