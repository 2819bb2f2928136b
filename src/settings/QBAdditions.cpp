#include "QBAdditions.h"

#include "QBKalender.h"

namespace {
enum class Zeitraum { Tag, Woche, Monat, Jahr };

// Begin (00:00:00 of the first day) or end (last second of the last day) of the period that
// contains the date, moved by `shift` periods. All arithmetic happens on the calendar fields of
// the period's first day, and the date is built once from them at the end: the end of a
// period is its first day plus one period minus one second, so the end of a shifted month is
// always the last second of that month, whatever its length.
QDateTime grenze(const QDateTime &date, Zeitraum zeitraum, std::int32_t shift, bool ende)
{
    auto kalender = QBKalender::gregorianCalendarAuf(date);
    if (!kalender)
        return {};
    QBKalender::Tag start = QBKalender::tagVon(*kalender);
    switch (zeitraum) {
    case Zeitraum::Tag:
        break;
    case Zeitraum::Woche: {
        UErrorCode status = U_ZERO_ERROR;
        const int wochentag = kalender->get(UCAL_DAY_OF_WEEK, status);
        const int ersterWochentag = kalender->getFirstDayOfWeek(status);
        if (U_FAILURE(status))
            return {};
        start.tag -= (wochentag - ersterWochentag + 7) % 7;
        break;
    }
    case Zeitraum::Monat:
        start.tag = 1;
        break;
    case Zeitraum::Jahr:
        start.monat = 1;
        start.tag = 1;
        break;
    }

    const std::int64_t schritte = std::int64_t(shift) + (ende ? 1 : 0);
    switch (zeitraum) {
    case Zeitraum::Tag:
        start.tag += schritte;
        break;
    case Zeitraum::Woche:
        start.tag += schritte * 7;
        break;
    case Zeitraum::Monat:
        start.monat += schritte;
        break;
    case Zeitraum::Jahr:
        start.jahr += schritte;
        break;
    }
    return QBKalender::ausKomponenten(*kalender, start.jahr, start.monat, start.tag, 0, 0, ende ? -1 : 0);
}
} // namespace

QDateTime QBAdditions::beginOfTheDayWithDayShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Tag, shift, false);
}

QDateTime QBAdditions::endOfTheDayWithDayShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Tag, shift, true);
}

QDateTime QBAdditions::beginOfTheWeekWithWeekShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Woche, shift, false);
}

QDateTime QBAdditions::endOfTheWeekWithWeekShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Woche, shift, true);
}

QDateTime QBAdditions::beginOfTheMonthWithMonthShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Monat, shift, false);
}

QDateTime QBAdditions::endOfTheMonthWithMonthShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Monat, shift, true);
}

QDateTime QBAdditions::beginOfTheYearWithYearShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Jahr, shift, false);
}

QDateTime QBAdditions::endOfTheYearWithYearShift(const QDateTime &date, std::int32_t shift)
{
    return grenze(date, Zeitraum::Jahr, shift, true);
}

QDateTime QBAdditions::dateWithoutSeconds(const QDateTime &date)
{
    auto kalender = QBKalender::gregorianCalendarAuf(date);
    if (!kalender)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const std::int64_t sekunde = kalender->get(UCAL_SECOND, status);
    const std::int64_t millisekunde = kalender->get(UCAL_MILLISECOND, status);
    if (U_FAILURE(status))
        return {};
    return QDateTime::fromMSecsSinceEpoch(date.toMSecsSinceEpoch() - sekunde * 1000 - millisekunde);
}

QDateTime QBAdditions::dateWithTimeFrom(const QDateTime &date, const QDateTime &time)
{
    auto uhrzeitKalender = QBKalender::gregorianCalendarAuf(time);
    auto kalender = QBKalender::gregorianCalendarAuf(date);
    if (!uhrzeitKalender || !kalender)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const std::int64_t stunde = uhrzeitKalender->get(UCAL_HOUR_OF_DAY, status);
    const std::int64_t minute = uhrzeitKalender->get(UCAL_MINUTE, status);
    const std::int64_t sekunde = uhrzeitKalender->get(UCAL_SECOND, status);
    if (U_FAILURE(status))
        return {};
    const QBKalender::Tag tag = QBKalender::tagVon(*kalender);
    return QBKalender::ausKomponenten(*kalender, tag.jahr, tag.monat, tag.tag, stunde, minute, sekunde);
}

QStringList QBAdditions::datesForAllDaysInMonthForDate(const QDateTime &date)
{
    const QDateTime ende = endOfTheMonth(date);
    auto kalender = QBKalender::gregorianCalendarAuf(beginOfTheMonth(date));
    if (!kalender || !ende.isValid())
        return {};
    const QBKalender::Tag erster = QBKalender::tagVon(*kalender);
    QStringList tage;
    for (std::int64_t tag = erster.tag;; ++tag) {
        const QDateTime schritt = QBKalender::ausKomponenten(*kalender, erster.jahr, erster.monat, tag);
        if (!schritt.isValid() || schritt >= ende)
            break;
        tage.append(formattedShortDateString(schritt));
    }
    return tage;
}
