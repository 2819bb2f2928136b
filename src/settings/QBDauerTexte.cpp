#include "QBDauerTexte.h"

#include "DecimalFormatter.h"
#include "UserLocale.h"

#include <cmath>
#include <limits>

namespace {
std::int64_t ganzeSekunden(double seconds)
{
    if (std::isnan(seconds))
        return 0;
    // 2^63 is exactly representable; everything from there on saturates.
    constexpr double kGrenze = 9223372036854775808.0;
    if (seconds >= kGrenze)
        return std::numeric_limits<std::int64_t>::max();
    if (seconds < -kGrenze)
        return std::numeric_limits<std::int64_t>::min();
    return static_cast<std::int64_t>(std::trunc(seconds));
}

QString zweistellig(std::int64_t zahl)
{
    return QString::asprintf("%02lld", static_cast<long long>(zahl));
}

struct Teile
{
    std::int64_t tage;
    std::int64_t stunden; // of the rest after the days
    std::int64_t minuten; // of the rest after the hours
};

Teile zerlege(std::int64_t sekunden)
{
    const std::int64_t rest = sekunden % QBDauerTexte::DAYS_ACCURACY;
    return {sekunden / QBDauerTexte::DAYS_ACCURACY, rest / QBDauerTexte::HOURS_ACCURACY,
            rest % QBDauerTexte::HOURS_ACCURACY / QBDauerTexte::MINUTES_ACCURACY};
}

std::int64_t gesamtStunden(const Teile &teile)
{
    return teile.tage * 24 + teile.stunden;
}
} // namespace

Decimal QBDauerTexte::formatNSTimeIntervalAsDecimalNumber(double seconds)
{
    return Decimal(ganzeSekunden(seconds)) / Decimal(HOURS_ACCURACY);
}

Decimal QBDauerTexte::formatDecimalIntervalAsDecimalNumber(const Decimal &seconds)
{
    // Whole seconds are 0 or at least 1 in size, so the quotient neither underflows nor
    // overflows; NaN divides to NaN.
    return seconds.rounded(0, Decimal::Rounding::Down) / Decimal(HOURS_ACCURACY);
}

QString QBDauerTexte::formatNSTimeIntervalAsDecimalString(double seconds)
{
    return QString::fromStdString(
        DecimalFormatter::format(formatNSTimeIntervalAsDecimalNumber(seconds), UserLocale::icuLocaleId(), 2));
}

QString QBDauerTexte::formatNSTimeIntervalAsDecimalStringWithSymbol(double seconds)
{
    return QStringLiteral("%1h").arg(formatNSTimeIntervalAsDecimalString(seconds));
}

QString QBDauerTexte::formatNSTimeIntervalAsNSString(double seconds, std::int64_t accuracy)
{
    const std::int64_t t = ganzeSekunden(seconds);
    const Teile teile = zerlege(t);
    if (accuracy == HOURS_ACCURACY && t >= HOURS_ACCURACY)
        return QStringLiteral("%1h").arg(zweistellig(t / HOURS_ACCURACY));
    if (accuracy == DAYS_ACCURACY) {
        if (t >= DAYS_ACCURACY) {
            return QStringLiteral("%1d %2h %3m")
                .arg(zweistellig(teile.tage), zweistellig(teile.stunden), zweistellig(teile.minuten));
        }
        if (teile.stunden > 0)
            return QStringLiteral("%1h %2m").arg(zweistellig(teile.stunden), zweistellig(teile.minuten));
        if (teile.minuten > 0)
            return QStringLiteral("%1m").arg(zweistellig(teile.minuten));
    }
    return QStringLiteral("%1h %2m").arg(zweistellig(gesamtStunden(teile)), zweistellig(teile.minuten));
}

QString QBDauerTexte::formatNSTimeIntervalAsNSStringForExport(double seconds, std::int64_t /*accuracy*/)
{
    const Teile teile = zerlege(ganzeSekunden(seconds));
    return QStringLiteral("%1:%2").arg(zweistellig(gesamtStunden(teile)), zweistellig(teile.minuten));
}
