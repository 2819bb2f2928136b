#pragma once

#include "Decimal.h"

#include <QString>

#include <string>

class FKRRechnung;

// The numbers a document prints, in the document's own language: amounts with their currency,
// quantities and percentages, each with exactly two fraction digits, rounded half to even.
//
// A German document writes "€ 1.234,50" (the currency text, a blank, the amount) and "19,00%";
// an English one writes its amounts as English does for that currency, "€1,234.50",
// "CHF 1,234.50", and "19.00%". A document of neither language follows the user's locale with
// the German arrangement of currency and amount, like its labels follow the user's language.
class FKRPDFZahlen
{
public:
    FKRPDFZahlen() = delete;

    static QString betrag(const Decimal &wert, const FKRRechnung &rechnung);
    // A quantity, or any other plain number.
    static QString zahl(const Decimal &wert, const FKRRechnung &rechnung);
    // A rate stored as a fraction, in percent without the sign ("10,00" for 0.1); "0" when it
    // cannot be written as a number.
    static QString prozent(const Decimal &anteil, const FKRRechnung &rechnung);

    // The ICU locale of the document's numbers.
    static std::string locale(const FKRRechnung &rechnung);
};
