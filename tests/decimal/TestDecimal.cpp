#include "Decimal.h"
#include "DecimalFormatter.h"

#include <gtest/gtest.h>

namespace {
Decimal d(const char *text)
{
    auto v = Decimal::parse(text);
    EXPECT_TRUE(v.has_value()) << text;
    return v.value_or(Decimal::notANumber());
}
std::string s(const Decimal &v) { return v.toString(); }
} // namespace

TEST(DecimalParse, AcceptsPlainAndScientificNotation)
{
    EXPECT_EQ(s(d("10.005")), "10.005");
    EXPECT_EQ(s(d("-0.50")), "-0.5");
    EXPECT_EQ(s(d("+007")), "7");
    EXPECT_EQ(s(d(".5")), "0.5");
    EXPECT_EQ(s(d("5.")), "5");
    EXPECT_EQ(s(d("1e3")), "1000");
    EXPECT_EQ(s(d("1.5E-3")), "0.0015");
    EXPECT_EQ(s(d("-0")), "0");
    EXPECT_EQ(s(d("0.000")), "0");
}

TEST(DecimalParse, RefusesWhatIsNotANumber)
{
    for (const char *bad : {"", " 1", "1 ", "abc", "1,5", "1.2.3", "--1", "1e", "e5", "NaN", "inf", "0x10", "."})
        EXPECT_FALSE(Decimal::parse(bad).has_value()) << bad;
    EXPECT_FALSE(Decimal::parse("1e999").has_value());
}

TEST(DecimalParse, KeepsThirtyEightDigitsAndRoundsTheRest)
{
    EXPECT_EQ(s(d("12345678901234567890123456789012345678")), "12345678901234567890123456789012345678");
    EXPECT_EQ(s(d("1.23456789012345678901234567890123456785")), "1.2345678901234567890123456789012345679");
    // Long texts cost linear time: a megabyte of digits is rounded in one step, not stripped of
    // its zeros one at a time.
    const std::string eins = "0." + std::string(1000000, '0') + "1";
    EXPECT_FALSE(Decimal::parse("1" + std::string(1000000, '0')).has_value());
    EXPECT_FALSE(Decimal::parse(eins).has_value());
    EXPECT_EQ(s(d(("1" + std::string(100, '0') + "e-100").c_str())), "1");
    EXPECT_EQ(s(d(("12345678901234567890123456789012345678" + std::string(89, '0') + "5").c_str())),
              "12345678901234567890123456789012345678" + std::string(90, '0'));
}

TEST(DecimalArithmetic, AddSubtractMultiplyAreExact)
{
    EXPECT_EQ(s(d("0.1") + d("0.2")), "0.3");
    EXPECT_EQ(s(d("100") - d("0.01")), "99.99");
    EXPECT_EQ(s(d("1.5") * d("10.01")), "15.015");
    EXPECT_EQ(s(d("113.05") * d("0.02")), "2.261");
    EXPECT_EQ(s(d("-3") * d("0.5")), "-1.5");
    EXPECT_EQ(d("10.00"), d("10"));
    // Operands whose alignment exceeds 128 bits take the wide path and stay exact.
    EXPECT_EQ(s(d("99999999999999999999999999999999999999") + d("1")), "100000000000000000000000000000000000000");
    EXPECT_EQ(s(d("1e30") + d("1e-7")), "1000000000000000000000000000000.0000001");
    EXPECT_EQ(s(d("12345678901234567890") * d("98765432109876543210")),
              "1219326311370217952237463801111263526900");
}

TEST(DecimalArithmetic, DivisionRoundsAtTheThirtyEighthDigit)
{
    EXPECT_EQ(s(d("5400") / d("3600")), "1.5");
    EXPECT_EQ(s(d("1000") / d("3600")), "0.27777777777777777777777777777777777778");
    EXPECT_EQ(s(d("2") / d("3")), "0.66666666666666666666666666666666666667");
    EXPECT_EQ(s(d("-1") / d("8")), "-0.125");
    EXPECT_EQ(s(d("201") / d("20")), "10.05");
    EXPECT_THROW(d("1") / Decimal(), DecimalError);
}

TEST(DecimalArithmetic, OverflowAndUnderflowRaise)
{
    // The largest value has 38 nines before an exponent of 127; a smaller coefficient can
    // still absorb a larger exponent.
    EXPECT_EQ(s(*Decimal::parse("9e127") * Decimal(10)).size(), 129u); // 9e128
    const Decimal big = *Decimal::parse("99999999999999999999999999999999999999e127");
    EXPECT_THROW(big * Decimal(10), DecimalError);
    EXPECT_THROW(big + big, DecimalError);
    EXPECT_THROW(big * big, DecimalError);
    const Decimal tiny = *Decimal::parse("1e-100");
    EXPECT_THROW(tiny * tiny, DecimalError);
}

TEST(DecimalArithmetic, NaNPropagatesAndComparesUnordered)
{
    const Decimal nan = Decimal::notANumber();
    EXPECT_TRUE((nan + Decimal(1)).isNaN());
    EXPECT_TRUE((nan * Decimal(1)).isNaN());
    EXPECT_FALSE(nan == nan);
    EXPECT_FALSE(nan < Decimal(1));
    EXPECT_FALSE(nan > Decimal(1));
    EXPECT_EQ(nan.toString(), "NaN");
}

TEST(DecimalRounding, HalfAwayFromZeroIsThePlainMode)
{
    using R = Decimal::Rounding;
    EXPECT_EQ(s(d("2.345").rounded(2, R::HalfAwayFromZero)), "2.35");
    EXPECT_EQ(s(d("-2.345").rounded(2, R::HalfAwayFromZero)), "-2.35");
    EXPECT_EQ(s(d("2.3449999").rounded(2, R::HalfAwayFromZero)), "2.34");
    EXPECT_EQ(s(d("10.005").rounded(2, R::HalfAwayFromZero)), "10.01");
    EXPECT_EQ(s(d("200.5").rounded(0, R::HalfAwayFromZero)), "201");
    EXPECT_EQ(s(d("0.004").rounded(2, R::HalfAwayFromZero)), "0");
    EXPECT_EQ(s(d("1e-60").rounded(2, R::HalfAwayFromZero)), "0");
    EXPECT_EQ(s(d("1e-60").rounded(2, R::Up)), "0.01");
    EXPECT_EQ(s(d("1.25").rounded(5, R::HalfAwayFromZero)), "1.25");
    EXPECT_EQ(s(d("1250").rounded(-2, R::HalfAwayFromZero)), "1300");
}

TEST(DecimalRounding, HalfEvenAndDirectedModes)
{
    using R = Decimal::Rounding;
    EXPECT_EQ(s(d("2.345").rounded(2, R::HalfEven)), "2.34");
    EXPECT_EQ(s(d("2.355").rounded(2, R::HalfEven)), "2.36");
    EXPECT_EQ(s(d("-2.345").rounded(2, R::HalfEven)), "-2.34");
    EXPECT_EQ(s(d("2.3451").rounded(2, R::HalfEven)), "2.35");
    EXPECT_EQ(s(d("2.349").rounded(2, R::Down)), "2.34");
    EXPECT_EQ(s(d("-2.349").rounded(2, R::Down)), "-2.34");
    EXPECT_EQ(s(d("2.341").rounded(2, R::Up)), "2.35");
}

TEST(DecimalText, FixedScaleAndIntegers)
{
    EXPECT_EQ(d("20").toFixedString(2), "20.00");
    EXPECT_EQ(d("-0.005").toFixedString(2), "-0.01");
    EXPECT_EQ(d("0.1").toFixedString(0), "0");
    EXPECT_EQ(d("123.99").toInt32(), 123);
    EXPECT_EQ(d("-123.99").toInt32(), -123);
    EXPECT_EQ(d("1e30").toInt32(), 2147483647);
    EXPECT_EQ(d("0.0015").toString(), "0.0015");
}

TEST(DecimalComparison, OrdersAcrossScales)
{
    EXPECT_LT(d("0.19"), d("0.2"));
    EXPECT_GT(d("-0.1"), d("-0.11"));
    EXPECT_LT(d("-5"), d("0.001"));
    EXPECT_EQ(d("0.190"), d("0.19"));
    EXPECT_NE(d("0.19"), d("0.191"));
}

TEST(DecimalFormatter, LocalisedTwoDigitTextRoundsHalfToEven)
{
    EXPECT_EQ(DecimalFormatter::format(d("1234.5"), "de_DE"), "1.234,50");
    EXPECT_EQ(DecimalFormatter::format(d("1234.5"), "en_US"), "1,234.50");
    EXPECT_EQ(DecimalFormatter::format(d("0.125"), "en_US"), "0.12");
    EXPECT_EQ(DecimalFormatter::format(d("0.135"), "en_US"), "0.14");
    EXPECT_EQ(DecimalFormatter::format(d("-0.5"), "de_DE"), "-0,50");
    EXPECT_EQ(DecimalFormatter::format(d("12345678901234567890.125"), "en_US"), "12,345,678,901,234,567,890.12");
    EXPECT_EQ(DecimalFormatter::format(d("19"), "de_DE"), "19,00");
}

TEST(DecimalFormatter, CurrencyStandsWhereTheLocaleWantsIt)
{
    const std::string nbsp = "\u00a0";
    const struct
    {
        const char *betrag, *locale, *waehrung;
        std::optional<std::string> text;
    } faelle[] = {
        // A symbol stays a symbol, a code a code; the locale places and spaces either.
        {"1234.5", "en_US", "€", "€1,234.50"},
        {"0.125", "en_US", "$", "$0.12"},
        {"-3", "en_US", "£", "-£3.00"},
        {"1234.5", "en_US", "CHF", "CHF" + nbsp + "1,234.50"},
        {"10", "en_US", "EUR", "EUR" + nbsp + "10.00"},
        {"1234.5", "de_DE", "€", "1.234,50" + nbsp + "€"},
        {"5", "en_US", "JPY", "JPY" + nbsp + "5.00"},
        // Texts that name no currency.
        {"1", "en_US", "Taler", std::nullopt},
        {"1", "en_US", "eur", std::nullopt},
        {"1", "en_US", "XQQ", std::nullopt},
        {"1", "en_US", "", std::nullopt},
        {"1", "en_US", "EURO", std::nullopt},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(std::string(fall.betrag) + " " + fall.locale + " " + fall.waehrung);
        EXPECT_EQ(DecimalFormatter::formatCurrency(d(fall.betrag), fall.locale, fall.waehrung), fall.text);
    }
    EXPECT_EQ(DecimalFormatter::formatCurrency(Decimal::notANumber(), "en_US", "€"), std::nullopt);
}
