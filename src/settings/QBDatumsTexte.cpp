#include "QBDatumsTexte.h"

#include "FKRLocalizationHelper.h"
#include "QBBenutzerEinstellungen.h"
#include "QBKalender.h"

#include <unicode/dtptngen.h>
#include <unicode/smpdtfmt.h>

#include <array>

namespace {
// Every call builds its formatter afresh, so a change of the user's locale or of the time zone
// shows in the very next text.
std::unique_ptr<icu::DateFormat> dateFormatterShortDate()
{
    return QBKalender::formatter(icu::DateFormat::kShort, icu::DateFormat::kNone);
}

std::unique_ptr<icu::DateFormat> dateFormatterShortDateTime()
{
    return QBKalender::formatter(icu::DateFormat::kShort, icu::DateFormat::kShort);
}

// The same styles as dateFormatterShortDateTime; an accessor of its own so that the texts of the
// "local format" operations can change without touching the others.
std::unique_ptr<icu::DateFormat> dateFormatterShortDateTimeLocalFormat()
{
    return QBKalender::formatter(icu::DateFormat::kShort, icu::DateFormat::kShort);
}

std::unique_ptr<icu::DateFormat> dateFormatterShortTimeLocalFormat()
{
    return QBKalender::formatter(icu::DateFormat::kNone, icu::DateFormat::kShort);
}

std::unique_ptr<icu::DateFormat> festesMuster(const char16_t *muster)
{
    return QBKalender::formatterMitMuster(icu::UnicodeString(muster));
}

QString formatiere(const std::unique_ptr<icu::DateFormat> &formatter, const QDateTime &date)
{
    return formatter ? QBKalender::formatiere(*formatter, date) : QString();
}

QDateTime parse(const std::unique_ptr<icu::DateFormat> &formatter, const QString &text)
{
    return formatter ? QBKalender::parse(*formatter, text) : QDateTime();
}
} // namespace

QString QBDatumsTexte::formattedShortDateAndTimeString(const QDateTime &date)
{
    return formatiere(dateFormatterShortDateTime(), date);
}

QString QBDatumsTexte::formattedShortDateAndTimeStringLocalFormat(const QDateTime &date)
{
    return formatiere(dateFormatterShortDateTimeLocalFormat(), date);
}

QString QBDatumsTexte::formattedShortDateString(const QDateTime &date)
{
    return formatiere(dateFormatterShortDate(), date);
}

QString QBDatumsTexte::dateiNamenZeitpunkt(const QDateTime &date)
{
    return formatiere(festesMuster(u"yyyy-MM-dd HH.mm.ss"), date);
}

QString QBDatumsTexte::formattedShortTimestampString(const QDateTime &date)
{
    return formattedShortTimestampString(date, QBBenutzerEinstellungen::sharedInstance()->zeitFormat24h());
}

QString QBDatumsTexte::formattedShortTimestampString(const QDateTime &date, bool zeitFormat24h)
{
    return zeitFormat24h ? formattedShortTimestampString24hFormat(date) : formattedShortTimestampStringLocalFormat(date);
}

QString QBDatumsTexte::formattedShortTimestampString24hFormat(const QDateTime &date)
{
    return formatiere(festesMuster(u"HH:mm"), date);
}

QString QBDatumsTexte::formattedShortTimestampStringLocalFormat(const QDateTime &date)
{
    return formatiere(dateFormatterShortTimeLocalFormat(), date);
}

QString QBDatumsTexte::yearComponentForDate(const QDateTime &date)
{
    return formatiere(festesMuster(u"yyyy"), date);
}

QString QBDatumsTexte::monthComponentForDate(const QDateTime &date)
{
    return formatiere(festesMuster(u"MM"), date);
}

QString QBDatumsTexte::dayComponentForDate(const QDateTime &date)
{
    return formatiere(festesMuster(u"dd"), date);
}

QString QBDatumsTexte::hourComponentForDate(const QDateTime &date)
{
    return formatiere(festesMuster(u"HH"), date);
}

QString QBDatumsTexte::minuteComponentForDate(const QDateTime &date)
{
    return formatiere(festesMuster(u"mm"), date);
}

QString QBDatumsTexte::monthYearString(const QDateTime &date)
{
    return monthYearStringWithTimeZone(date, QTimeZone());
}

QString QBDatumsTexte::monthYearStringWithTimeZone(const QDateTime &date, const QTimeZone &zone)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale locale = QBKalender::benutzerLocale();
    const std::unique_ptr<icu::DateTimePatternGenerator> generator(
        icu::DateTimePatternGenerator::createInstance(locale, status));
    if (U_FAILURE(status) || !generator)
        return {};
    const icu::UnicodeString muster = generator->getBestPattern(icu::UnicodeString(u"yMMMM"), status);
    icu::SimpleDateFormat formatter(muster, locale, status);
    if (U_FAILURE(status))
        return {};
    formatter.adoptTimeZone(zone.isValid() ? QBKalender::zeitzone(zone).release()
                                           : QBKalender::aktuelleZeitzone().release());
    return QBKalender::formatiere(formatter, date);
}

QString QBDatumsTexte::localizedDayName(const QDateTime &date)
{
    static constexpr std::array<const char *, 7> kSchluessel = {
        "WOCHENTAG_SONNTAG",    "WOCHENTAG_MONTAG",  "WOCHENTAG_DIENSTAG", "WOCHENTAG_MITTWOCH",
        "WOCHENTAG_DONNERSTAG", "WOCHENTAG_FREITAG", "WOCHENTAG_SAMSTAG",
    };
    auto kalender = QBKalender::gregorianCalendarAuf(date);
    if (!kalender)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const int wochentag = kalender->get(UCAL_DAY_OF_WEEK, status); // 1 Sunday … 7 Saturday
    if (U_FAILURE(status) || wochentag < 1 || wochentag > 7)
        return {};
    const QString schluessel = QString::fromLatin1(kSchluessel[std::size_t(wochentag - 1)]);
    // The main table answers a missing key with the key itself; a weekday without a text in
    // the table has no name at all rather than a technical one.
    const QString name = FKRLocalizationHelper::hauptTabellenText(schluessel);
    return name == schluessel ? QString() : name;
}

QString QBDatumsTexte::dayNameForDateString(const QString &text)
{
    return localizedDayName(parse(dateFormatterShortDate(), text));
}

QDateTime QBDatumsTexte::dateForShortDateTimeString(const QString &text)
{
    return parse(dateFormatterShortDateTimeLocalFormat(), text);
}
