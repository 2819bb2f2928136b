#include "DecimalFormatter.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>

namespace {
UNumberFormatRoundingMode icuRounding(Decimal::Rounding mode)
{
    switch (mode) {
    case Decimal::Rounding::HalfAwayFromZero:
        return UNUM_ROUND_HALFUP; // ICU's HALFUP rounds ties away from zero
    case Decimal::Rounding::HalfEven:
        return UNUM_ROUND_HALFEVEN;
    case Decimal::Rounding::Down:
        return UNUM_ROUND_DOWN;
    case Decimal::Rounding::Up:
        return UNUM_ROUND_UP;
    }
    return UNUM_ROUND_HALFEVEN;
}
} // namespace

std::string DecimalFormatter::format(const Decimal &value, const std::string &localeId, int fractionDigits,
                                     Decimal::Rounding rounding)
{
    if (value.isNaN())
        return "NaN";
    using namespace icu::number;
    UErrorCode status = U_ZERO_ERROR;
    const std::string digits = value.toString();
    const FormattedNumber formatted = NumberFormatter::withLocale(icu::Locale(localeId.c_str()))
                                          .precision(Precision::fixedFraction(fractionDigits))
                                          .integerWidth(IntegerWidth::zeroFillTo(1))
                                          .roundingMode(icuRounding(rounding))
                                          .formatDecimal(icu::StringPiece(digits.data(), int32_t(digits.size())), status);
    if (U_FAILURE(status))
        return value.toFixedString(fractionDigits);
    std::string out;
    formatted.toString(status).toUTF8String(out);
    if (U_FAILURE(status))
        return value.toFixedString(fractionDigits);
    return out;
}
