#pragma once

#include "Decimal.h"

#include <QString>

#include <optional>

class FKRRechnung;

// How amounts and rates are written: with two fraction digits in a locale, the currency in front.
class FKRBetragsFormat
{
public:
    // The label of a VAT rate given in percent: "19,00%" in "de_DE", "19.00%" in "en_US"; empty for
    // an absent or zero rate. An empty locale means "de_DE".
    static QString mwStSatzText(const std::optional<Decimal> &prozent, const QString &locale);

    // The amount with exactly two fraction digits in the user's current locale, rounded half to
    // even like the platform's number formatters.
    static QString formatiert(const Decimal &betrag);

    // The document's currency text (or "€" when it has none), a blank, the formatted amount.
    static QString betragText(const QString &formatiert, const FKRRechnung &rechnung);
};
