#pragma once

#include "Decimal.h"

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
};
