#include "QBMinutenRundung.h"

#include "QBKalender.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace {
enum class Richtung { Auf, Ab, Naechste };

std::int64_t abgerundetGeteilt(std::int64_t zaehler, std::int64_t nenner)
{
    const std::int64_t quotient = zaehler / nenner;
    return (zaehler % nenner != 0 && zaehler < 0) ? quotient - 1 : quotient;
}

std::int64_t aufgerundetGeteilt(std::int64_t zaehler, std::int64_t nenner)
{
    const std::int64_t quotient = zaehler / nenner;
    return (zaehler % nenner != 0 && zaehler > 0) ? quotient + 1 : quotient;
}

// The wall-clock minute of the date moved onto the grid, the other fields kept, and the date
// rebuilt from them (a minute of 60 or more carries into the hour).
QDateTime rundeMinute(const QDateTime &date, Richtung richtung, int intervall)
{
    auto kalender = QBKalender::gregorianCalendarAuf(date);
    if (!kalender)
        return {};
    const QBKalender::Tag tag = QBKalender::tagVon(*kalender);
    UErrorCode status = U_ZERO_ERROR;
    const std::int64_t stunde = kalender->get(UCAL_HOUR_OF_DAY, status);
    const std::int64_t minute = kalender->get(UCAL_MINUTE, status);
    const std::int64_t sekunde = kalender->get(UCAL_SECOND, status);
    if (U_FAILURE(status))
        return {};
    const std::int64_t unten = abgerundetGeteilt(minute, intervall) * intervall;
    const std::int64_t oben = aufgerundetGeteilt(minute, intervall) * intervall;
    std::int64_t gerundet = unten;
    switch (richtung) {
    case Richtung::Auf:
        gerundet = oben;
        break;
    case Richtung::Ab:
        gerundet = unten;
        break;
    case Richtung::Naechste:
        // Up from half the interval on: 7 of 15 minutes go down, 8 go up.
        gerundet = 2 * (minute - unten) >= intervall ? unten + intervall : unten;
        break;
    }
    return QBKalender::ausKomponenten(*kalender, tag.jahr, tag.monat, tag.tag, stunde, gerundet, sekunde);
}

std::optional<Richtung> richtungFuerBeginn(int mode)
{
    switch (mode) {
    case 1:
    case 5:
        return Richtung::Auf;
    case 2:
    case 3:
    case 4:
    case 6:
        return Richtung::Ab;
    case 7:
        return Richtung::Naechste;
    default:
        return std::nullopt;
    }
}

std::optional<Richtung> richtungFuerEnde(int mode)
{
    switch (mode) {
    case 1:
    case 6:
        return Richtung::Auf;
    case 2:
    case 5:
        return Richtung::Ab;
    case 7:
        return Richtung::Naechste;
    default:
        return std::nullopt;
    }
}
} // namespace

int QBMinutenRundung::retrieveRundungsIntervallForIncrement(int increment)
{
    static constexpr std::array<int, 10> kIntervalle = {5, 10, 15, 20, 30, 40, 45, 60, 75, 90};
    if (increment < 1 || increment > int(kIntervalle.size()))
        return 0;
    return kIntervalle[std::size_t(increment - 1)];
}

QDateTime QBMinutenRundung::roundBeginDateWithRoundingMode(const QDateTime &date, int mode, int increment)
{
    const int intervall = retrieveRundungsIntervallForIncrement(increment);
    const std::optional<Richtung> richtung = richtungFuerBeginn(mode);
    if (intervall == 0 || !richtung)
        return date;
    return rundeMinute(date, *richtung, intervall);
}

QDateTime QBMinutenRundung::roundEndDateWithBeginDate(const QDateTime &end, const QDateTime &begin, int mode,
                                                      int increment)
{
    const int intervall = retrieveRundungsIntervallForIncrement(increment);
    if (intervall == 0)
        return end;
    if (mode == 3 || mode == 4) {
        // The duration from the begin time on the grid, never less than one interval, added to
        // the begin time as that mode rounds it.
        if (!end.isValid() || !begin.isValid())
            return {};
        std::int64_t dauer = 0;
        if (__builtin_sub_overflow(end.toMSecsSinceEpoch(), begin.toMSecsSinceEpoch(), &dauer))
            return {};
        const std::int64_t raster = std::int64_t(intervall) * 60'000;
        const std::int64_t rasterSchritte = mode == 3 ? aufgerundetGeteilt(dauer, raster) : abgerundetGeteilt(dauer, raster);
        const std::int64_t minuten = std::max<std::int64_t>(rasterSchritte, 1) * intervall;
        const QDateTime gerundeterBeginn = roundBeginDateWithRoundingMode(begin, mode, increment);
        return gerundeterBeginn.isValid() ? gerundeterBeginn.addSecs(minuten * 60) : QDateTime();
    }
    const std::optional<Richtung> richtung = richtungFuerEnde(mode);
    if (!richtung)
        return end;
    return rundeMinute(end, *richtung, intervall);
}
