#pragma once

#include "Decimal.h"

#include <QString>

#include <cstdint>

// Durations of time records as decimal hours and as texts. Reached as QBAdditions::… by
// callers. Every interval is in seconds and is first cut to whole seconds toward zero
// (5400.9 s count as 5400 s); NaN counts as 0 and values beyond the 64-bit range as its limits.
class QBDauerTexte
{
public:
    QBDauerTexte() = delete;

    // Accuracies of formatNSTimeIntervalAsNSString, in seconds.
    static constexpr std::int64_t DAYS_ACCURACY = 86400;
    static constexpr std::int64_t HOURS_ACCURACY = 3600;
    static constexpr std::int64_t MINUTES_ACCURACY = 60;

    // Hours as an exact decimal, seconds ÷ 3600 to 38 significant digits, unrounded otherwise:
    // 5400 s give 1.5, 1000 s give 0.27777777777777777777777777777777777778.
    static Decimal formatNSTimeIntervalAsDecimalNumber(double seconds);
    // The same for seconds that are already a decimal (read from text), so that no digit passes
    // through a double: cut toward zero to whole seconds, then ÷ 3600. NaN stays NaN; any size
    // that a Decimal holds is taken as it is.
    static Decimal formatDecimalIntervalAsDecimalNumber(const Decimal &seconds);
    // The hours with exactly two fraction digits in the user's locale: "1,50" in German.
    static QString formatNSTimeIntervalAsDecimalString(double seconds);
    // The same followed by "h": "1,50h".
    static QString formatNSTimeIntervalAsDecimalStringWithSymbol(double seconds);

    // A text of days, hours and minutes, every number with at least two digits:
    // - accuracy HOURS_ACCURACY and at least an hour: the whole hours, "02h";
    // - accuracy DAYS_ACCURACY: "01d 01h 01m" from a day on, "03h 20m" from an hour on,
    //   "05m" from a minute on;
    // - otherwise, and for anything shorter: total hours and minutes, "26h 05m", "00h 00m".
    static QString formatNSTimeIntervalAsNSString(double seconds, std::int64_t accuracy);
    // Total hours and minutes for exports: "26:05". The accuracy does not change this text; it
    // is taken so that both duration texts are called alike.
    static QString formatNSTimeIntervalAsNSStringForExport(double seconds, std::int64_t accuracy = DAYS_ACCURACY);
};
