#include "DecimalFormatter.h"

#include <unicode/locid.h>
#include <unicode/numberformatter.h>
#include <unicode/ucurr.h>
#include <unicode/uenum.h>
#include <unicode/unistr.h>

#include <map>
#include <memory>
#include <mutex>

namespace {

struct Currency
{
    icu::UnicodeString code;
    bool asCode = false;
};

std::optional<Currency> lookUpCurrency(const std::string &localeId, const std::string &text)
{
    icu::UnicodeString wanted = icu::UnicodeString::fromUTF8(text);
    UErrorCode status = U_ZERO_ERROR;
    const bool looksLikeCode =
        text.size() == 3 && text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ") == std::string::npos;
    if (looksLikeCode && ucurr_isAvailable(wanted.getTerminatedBuffer(), U_DATE_MIN, U_DATE_MAX, &status)
        && U_SUCCESS(status))
        return Currency{wanted, true};

    // A symbol: the currency whose symbol in this locale it is ("$" is the dollar of the
    // United States in "en_US", while the Canadian one is "CA$" there).
    status = U_ZERO_ERROR;
    const std::unique_ptr<UEnumeration, decltype(&uenum_close)> codes(
        ucurr_openISOCurrencies(UCURR_COMMON | UCURR_NON_DEPRECATED, &status), uenum_close);
    if (U_FAILURE(status))
        return std::nullopt;
    while (const char *code = uenum_next(codes.get(), nullptr, &status)) {
        if (U_FAILURE(status))
            return std::nullopt;
        icu::UnicodeString isoCode(code, -1, US_INV);
        UBool choice = false;
        int32_t length = 0;
        UErrorCode nameStatus = U_ZERO_ERROR;
        const UChar *symbol =
            ucurr_getName(isoCode.getTerminatedBuffer(), localeId.c_str(), UCURR_SYMBOL_NAME, &choice, &length, &nameStatus);
        if (U_SUCCESS(nameStatus) && symbol && wanted == icu::UnicodeString(symbol, length))
            return Currency{isoCode, false};
    }
    return std::nullopt;
}

// Looking a symbol up goes through every currency ICU knows; a document prints many amounts in
// one currency, so each answer is kept.
std::optional<Currency> currencyFor(const std::string &localeId, const std::string &text)
{
    static std::mutex lock;
    static std::map<std::pair<std::string, std::string>, std::optional<Currency>> known;
    const std::lock_guard<std::mutex> guard(lock);
    const auto key = std::make_pair(localeId, text);
    auto entry = known.find(key);
    if (entry == known.end())
        entry = known.emplace(key, lookUpCurrency(localeId, text)).first;
    return entry->second;
}

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

std::optional<std::string> DecimalFormatter::formatCurrency(const Decimal &value, const std::string &localeId,
                                                           const std::string &currency, int fractionDigits,
                                                           Decimal::Rounding rounding)
{
    if (value.isNaN())
        return std::nullopt;
    const std::optional<Currency> unit = currencyFor(localeId, currency);
    if (!unit)
        return std::nullopt;
    using namespace icu::number;
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString code = unit->code;
    const icu::CurrencyUnit currencyUnit(code.getTerminatedBuffer(), status);
    if (U_FAILURE(status))
        return std::nullopt;
    const std::string digits = value.toString();
    const FormattedNumber formatted = NumberFormatter::withLocale(icu::Locale(localeId.c_str()))
                                          .unit(currencyUnit)
                                          .unitWidth(unit->asCode ? UNUM_UNIT_WIDTH_ISO_CODE : UNUM_UNIT_WIDTH_SHORT)
                                          .precision(Precision::fixedFraction(fractionDigits))
                                          .integerWidth(IntegerWidth::zeroFillTo(1))
                                          .roundingMode(icuRounding(rounding))
                                          .formatDecimal(icu::StringPiece(digits.data(), int32_t(digits.size())), status);
    std::string out;
    if (U_SUCCESS(status))
        formatted.toString(status).toUTF8String(out);
    if (U_FAILURE(status))
        return std::nullopt;
    return out;
}
