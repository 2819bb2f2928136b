#pragma once

#include "Decimal.h"

#include <optional>
#include <string>

// Locale-aware text of a decimal through ICU's number formatter, fed with the exact decimal
// digits (never a double): grouping and separators of the locale, a fixed number of fraction
// digits, at least one integer digit.
class DecimalFormatter
{
public:
    // localeId is an ICU/POSIX locale name such as "de_DE" or "en_US". The default rounding is
    // half to even, the rounding of the platform's number formatters. NaN gives "NaN".
    static std::string format(const Decimal &value, const std::string &localeId, int fractionDigits = 2,
                              Decimal::Rounding rounding = Decimal::Rounding::HalfEven);

    // The amount with its currency as the locale writes it: "€1,234.50" and "CHF 1,234.50" in
    // "en_US". `currency` is an ISO 4217 code, which is written as the code, or a symbol that the
    // locale uses for a currency ("€", "$", "£"), which is written as that symbol; the locale
    // decides on which side it stands and whether a blank separates it. Nothing when no currency
    // of that text is known. Fraction digits and rounding as format().
    static std::optional<std::string> formatCurrency(const Decimal &value, const std::string &localeId,
                                                     const std::string &currency, int fractionDigits = 2,
                                                     Decimal::Rounding rounding = Decimal::Rounding::HalfEven);
};
