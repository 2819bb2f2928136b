#include "QBKalender.h"

#include "UserLocale.h"

#include <unicode/smpdtfmt.h>

#include <cmath>
#include <limits>

namespace {
constexpr double kMillisekundenJeJahr = 365.2425 * 86400.0 * 1000.0;

bool istUnbekannt(const icu::TimeZone &zone)
{
    icu::UnicodeString id;
    zone.getID(id);
    return id == icu::UnicodeString(u"Etc/Unknown");
}

bool passtInInt32(std::int64_t value)
{
    return value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max();
}

// The narrow no-break space that recent locale data puts before "AM"/"PM" cannot be typed on
// most keyboards; a text with an ordinary blank there is read with the same pattern in which
// that space is a blank.
constexpr char16_t kSchmalesLeerzeichen = u'\u202F';

std::optional<UDate> parseGanz(const icu::DateFormat &formatter, const icu::UnicodeString &text)
{
    icu::ParsePosition position(0);
    const UDate ergebnis = formatter.parse(text, position);
    if (position.getErrorIndex() >= 0 || position.getIndex() != text.length())
        return std::nullopt;
    return ergebnis;
}
} // namespace

icu::Locale QBKalender::benutzerLocale()
{
    return icu::Locale(UserLocale::icuLocaleId().c_str());
}

std::unique_ptr<icu::TimeZone> QBKalender::aktuelleZeitzone()
{
    return zeitzone(QTimeZone(QTimeZone::systemTimeZoneId()));
}

std::unique_ptr<icu::TimeZone> QBKalender::zeitzone(const QTimeZone &zone)
{
    if (zone.isValid()) {
        std::unique_ptr<icu::TimeZone> icuZone(icu::TimeZone::createTimeZone(unicode(QString::fromUtf8(zone.id()))));
        if (icuZone && !istUnbekannt(*icuZone))
            return icuZone;
    }
    return std::unique_ptr<icu::TimeZone>(icu::TimeZone::detectHostTimeZone());
}

std::unique_ptr<icu::GregorianCalendar> QBKalender::gregorianCalendar()
{
    UErrorCode status = U_ZERO_ERROR;
    auto kalender = std::make_unique<icu::GregorianCalendar>(aktuelleZeitzone().release(), benutzerLocale(), status);
    if (U_FAILURE(status))
        return nullptr;
    // The minimal days of the first week stay as the locale has them.
    kalender->setFirstDayOfWeek(UCAL_MONDAY);
    kalender->setLenient(true);
    return kalender;
}

std::unique_ptr<icu::GregorianCalendar> QBKalender::gregorianCalendarAuf(const QDateTime &date)
{
    const std::optional<UDate> zeit = udate(date);
    if (!zeit || std::fabs(*zeit) > kGrenzeJahre * kMillisekundenJeJahr)
        return nullptr;
    auto kalender = gregorianCalendar();
    if (!kalender)
        return nullptr;
    UErrorCode status = U_ZERO_ERROR;
    kalender->setTime(*zeit, status);
    if (U_FAILURE(status))
        return nullptr;
    return kalender;
}

QBKalender::Tag QBKalender::tagVon(const icu::Calendar &kalender)
{
    UErrorCode status = U_ZERO_ERROR;
    Tag tag{kalender.get(UCAL_EXTENDED_YEAR, status), kalender.get(UCAL_MONTH, status) + 1,
            kalender.get(UCAL_DATE, status)};
    return tag;
}

QDateTime QBKalender::ausKomponenten(icu::Calendar &kalender, std::int64_t jahr, std::int64_t monat,
                                     std::int64_t tag, std::int64_t stunde, std::int64_t minute,
                                     std::int64_t sekunde)
{
    for (std::int64_t feld : {jahr, monat - 1, tag, stunde, minute, sekunde}) {
        if (!passtInInt32(feld))
            return {};
    }
    // Where the fields end up, roughly; the check only has to keep ICU away from its wrap-around.
    const double zielJahr = double(jahr) + double(monat - 1) / 12.0 + double(tag) / 365.2425
        + (double(stunde) * 3600.0 + double(minute) * 60.0 + double(sekunde)) / (365.2425 * 86400.0);
    if (std::fabs(zielJahr) > kGrenzeJahre)
        return {};

    kalender.clear();
    kalender.set(UCAL_EXTENDED_YEAR, std::int32_t(jahr));
    kalender.set(UCAL_MONTH, std::int32_t(monat - 1));
    kalender.set(UCAL_DATE, std::int32_t(tag));
    kalender.set(UCAL_HOUR_OF_DAY, std::int32_t(stunde));
    kalender.set(UCAL_MINUTE, std::int32_t(minute));
    kalender.set(UCAL_SECOND, std::int32_t(sekunde));
    UErrorCode status = U_ZERO_ERROR;
    const UDate zeit = kalender.getTime(status);
    if (U_FAILURE(status))
        return {};
    return datum(zeit);
}

std::unique_ptr<icu::DateFormat> QBKalender::formatter(icu::DateFormat::EStyle datumsStil,
                                                       icu::DateFormat::EStyle zeitStil)
{
    std::unique_ptr<icu::DateFormat> ergebnis(
        icu::DateFormat::createDateTimeInstance(datumsStil, zeitStil, benutzerLocale()));
    if (!ergebnis)
        return nullptr;
    ergebnis->adoptTimeZone(aktuelleZeitzone().release());
    ergebnis->setLenient(false);
    return ergebnis;
}

std::unique_ptr<icu::DateFormat> QBKalender::formatterMitMuster(const icu::UnicodeString &muster)
{
    UErrorCode status = U_ZERO_ERROR;
    auto ergebnis = std::make_unique<icu::SimpleDateFormat>(muster, benutzerLocale(), status);
    if (U_FAILURE(status))
        return nullptr;
    ergebnis->adoptTimeZone(aktuelleZeitzone().release());
    ergebnis->setLenient(false);
    return ergebnis;
}

QString QBKalender::formatiere(const icu::DateFormat &formatter, const QDateTime &date)
{
    const std::optional<UDate> zeit = udate(date);
    if (!zeit)
        return {};
    icu::UnicodeString ergebnis;
    formatter.format(*zeit, ergebnis);
    return text(ergebnis);
}

QDateTime QBKalender::parse(const icu::DateFormat &formatter, const QString &eingabe)
{
    const icu::UnicodeString unicodeText = unicode(eingabe);
    std::optional<UDate> zeit = parseGanz(formatter, unicodeText);
    if (!zeit) {
        if (const auto *einfach = dynamic_cast<const icu::SimpleDateFormat *>(&formatter)) {
            icu::UnicodeString muster;
            einfach->toPattern(muster);
            if (muster.indexOf(kSchmalesLeerzeichen) >= 0) {
                std::unique_ptr<icu::SimpleDateFormat> mitLeerzeichen(einfach->clone());
                mitLeerzeichen->applyPattern(muster.findAndReplace(icu::UnicodeString(kSchmalesLeerzeichen),
                                                                   icu::UnicodeString(u' ')));
                zeit = parseGanz(*mitLeerzeichen, unicodeText);
            }
        }
    }
    return zeit ? datum(*zeit) : QDateTime();
}

std::optional<UDate> QBKalender::udate(const QDateTime &date)
{
    if (!date.isValid())
        return std::nullopt;
    return UDate(date.toMSecsSinceEpoch());
}

QDateTime QBKalender::datum(UDate udate)
{
    if (!std::isfinite(udate) || std::fabs(udate) > 9.0e18)
        return {};
    return QDateTime::fromMSecsSinceEpoch(std::llround(udate));
}

QString QBKalender::text(const icu::UnicodeString &text)
{
    return QString(reinterpret_cast<const QChar *>(text.getBuffer()), text.length());
}

icu::UnicodeString QBKalender::unicode(const QString &text)
{
    return icu::UnicodeString(reinterpret_cast<const char16_t *>(text.utf16()), int32_t(text.size()));
}
