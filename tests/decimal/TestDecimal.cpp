#include "Decimal.h"
#include "DecimalFormatter.h"

#include <gtest/gtest.h>

namespace {
Decimal d(const std::string &text)
{
    auto v = Decimal::parse(text);
    EXPECT_TRUE(v.has_value()) << text;
    return v.value_or(Decimal::notANumber());
}
using R = Decimal::Rounding;
const std::string k38 = "12345678901234567890123456789012345678";

TEST(DecimalParse, ReadsPlainAndScientificNotationKeepingThirtyEightDigits)
{
    const std::pair<std::string, std::string> faelle[] = {
        {"10.005", "10.005"}, {"-0.50", "-0.5"}, {"+007", "7"}, {".5", "0.5"}, {"5.", "5"}, {"1e3", "1000"},
        {"1.5E-3", "0.0015"}, {"-0", "0"}, {"0.000", "0"}, {k38, k38},
        {"1.23456789012345678901234567890123456785", "1.2345678901234567890123456789012345679"},
        {"1" + std::string(100, '0') + "e-100", "1"}, {k38 + std::string(89, '0') + "5", k38 + std::string(90, '0')}};
    for (const auto &[text, soll] : faelle)
        EXPECT_EQ(d(text).toString(), soll) << text;
    // A megabyte of digits costs linear time: rounded in one step, not stripped zero by zero.
    for (const std::string &bad : {std::string(), std::string(" 1"), std::string("1 "), std::string("abc"),
                                   std::string("1,5"), std::string("1.2.3"), std::string("--1"), std::string("1e"),
                                   std::string("e5"), std::string("NaN"), std::string("inf"), std::string("0x10"),
                                   std::string("."), std::string("1e999"), "1" + std::string(1000000, '0'),
                                   "0." + std::string(1000000, '0') + "1"})
        EXPECT_FALSE(Decimal::parse(bad).has_value()) << bad.substr(0, 12);
}

TEST(DecimalArithmetic, ExactExceptDivisionWhichRoundsAtTheThirtyEighthDigit)
{
    const struct {
        const char *a;
        char op;
        const char *b;
        std::string soll;
    } faelle[] = {
        {"0.1", '+', "0.2", "0.3"}, {"100", '-', "0.01", "99.99"}, {"1.5", '*', "10.01", "15.015"},
        {"113.05", '*', "0.02", "2.261"}, {"-3", '*', "0.5", "-1.5"}, {"5400", '/', "3600", "1.5"},
        {"1000", '/', "3600", "0.27777777777777777777777777777777777778"},
        {"2", '/', "3", "0.66666666666666666666666666666666666667"}, {"1", '/', "3", "0." + std::string(38, '3')},
        {"-1", '/', "8", "-0.125"}, {"201", '/', "20", "10.05"},
        // Operands whose alignment exceeds 128 bits take the wide path and stay exact.
        {"99999999999999999999999999999999999999", '+', "1", "100000000000000000000000000000000000000"},
        {"1e30", '+', "1e-7", "1000000000000000000000000000000.0000001"},
        {"12345678901234567890", '*', "98765432109876543210", "1219326311370217952237463801111263526900"},
        {"9e127", '*', "10", "9" + std::string(128, '0')}}; // a small coefficient absorbs a larger exponent
    for (const auto &f : faelle) {
        const Decimal a = d(f.a), b = d(f.b);
        const Decimal r = f.op == '+' ? a + b : f.op == '-' ? a - b : f.op == '*' ? a * b : a / b;
        EXPECT_EQ(r.toString(), f.soll) << f.a << f.op << f.b;
    }
    const Decimal big = d("99999999999999999999999999999999999999e127"), tiny = d("1e-100");
    EXPECT_THROW(d("1") / Decimal(), DecimalError);
    EXPECT_THROW(big * Decimal(10), DecimalError);
    EXPECT_THROW(big + big, DecimalError);
    EXPECT_THROW(big * big, DecimalError);
    EXPECT_THROW(tiny * tiny, DecimalError);
}

TEST(DecimalArithmetic, NaNPropagatesAndComparesUnordered)
{
    const Decimal nan = Decimal::notANumber();
    EXPECT_TRUE((nan + Decimal(1)).isNaN());
    EXPECT_TRUE((nan * Decimal(1)).isNaN());
    EXPECT_FALSE(nan == nan || nan < Decimal(1) || nan > Decimal(1));
    EXPECT_EQ(nan.toString(), "NaN");
}

TEST(DecimalRounding, EveryModeAtAnyPlace)
{
    const struct {
        const char *zahl;
        int stellen;
        R modus;
        const char *soll;
    } faelle[] = {
        {"2.345", 2, R::HalfAwayFromZero, "2.35"}, {"-2.345", 2, R::HalfAwayFromZero, "-2.35"},
        {"2.3449999", 2, R::HalfAwayFromZero, "2.34"}, {"10.005", 2, R::HalfAwayFromZero, "10.01"},
        {"200.5", 0, R::HalfAwayFromZero, "201"}, {"0.004", 2, R::HalfAwayFromZero, "0"},
        {"1e-60", 2, R::HalfAwayFromZero, "0"}, {"1e-60", 2, R::Up, "0.01"}, {"1.25", 5, R::HalfAwayFromZero, "1.25"},
        {"1250", -2, R::HalfAwayFromZero, "1300"}, {"2.345", 2, R::HalfEven, "2.34"}, {"2.355", 2, R::HalfEven, "2.36"},
        {"-2.345", 2, R::HalfEven, "-2.34"}, {"2.3451", 2, R::HalfEven, "2.35"}, {"2.349", 2, R::Down, "2.34"},
        {"-2.349", 2, R::Down, "-2.34"}, {"2.341", 2, R::Up, "2.35"}};
    for (const auto &f : faelle)
        EXPECT_EQ(d(f.zahl).rounded(f.stellen, f.modus).toString(), f.soll) << f.zahl << " " << f.stellen;
}

TEST(DecimalText, FixedScaleIntegersAndOrder)
{
    EXPECT_EQ(d("20").toFixedString(2), "20.00");
    EXPECT_EQ(d("-0.005").toFixedString(2), "-0.01");
    EXPECT_EQ(d("0.1").toFixedString(0), "0");
    EXPECT_EQ(d("123.99").toInt32(), 123);
    EXPECT_EQ(d("-123.99").toInt32(), -123);
    EXPECT_EQ(d("1e30").toInt32(), 2147483647);
    EXPECT_LT(d("0.19"), d("0.2"));
    EXPECT_GT(d("-0.1"), d("-0.11"));
    EXPECT_LT(d("-5"), d("0.001"));
    EXPECT_EQ(d("0.190"), d("0.19"));
    EXPECT_NE(d("0.19"), d("0.191"));
}

TEST(DecimalFormatter, LocalisedTwoDigitTextRoundsHalfToEvenWithTheCurrencyWhereTheLocaleWantsIt)
{
    const std::string nbsp = "\u00a0";
    const struct {
        const char *betrag, *locale, *waehrung;
        std::optional<std::string> text;
    } faelle[] = {
        {"1234.5", "de_DE", nullptr, "1.234,50"}, {"1234.5", "en_US", nullptr, "1,234.50"},
        {"0.125", "en_US", nullptr, "0.12"}, {"0.135", "en_US", nullptr, "0.14"}, {"-0.5", "de_DE", nullptr, "-0,50"},
        {"12345678901234567890.125", "en_US", nullptr, "12,345,678,901,234,567,890.12"},
        {"1234.5", "en_US", "€", "€1,234.50"}, {"0.125", "en_US", "$", "$0.12"}, {"-3", "en_US", "£", "-£3.00"},
        {"1234.5", "en_US", "CHF", "CHF" + nbsp + "1,234.50"}, {"10", "en_US", "EUR", "EUR" + nbsp + "10.00"},
        {"1234.5", "de_DE", "€", "1.234,50" + nbsp + "€"}, {"5", "en_US", "JPY", "JPY" + nbsp + "5.00"},
        {"1", "en_US", "Taler", std::nullopt}, {"1", "en_US", "eur", std::nullopt}, {"1", "en_US", "XQQ", std::nullopt},
        {"1", "en_US", "", std::nullopt}, {"1", "en_US", "EURO", std::nullopt}};
    for (const auto &f : faelle) {
        SCOPED_TRACE(std::string(f.betrag) + " " + f.locale + " " + (f.waehrung ? f.waehrung : "-"));
        if (f.waehrung)
            EXPECT_EQ(DecimalFormatter::formatCurrency(d(f.betrag), f.locale, f.waehrung), f.text);
        else
            EXPECT_EQ(DecimalFormatter::format(d(f.betrag), f.locale), *f.text);
    }
    EXPECT_EQ(DecimalFormatter::formatCurrency(Decimal::notANumber(), "en_US", "€"), std::nullopt);
}
} // namespace
