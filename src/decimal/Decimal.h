#pragma once

#include <gmpxx.h>

#include <compare>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

// A base-10 number for money, quantities and rates: coefficient × 10^exponent with at most
// 38 significant digits, or NaN. Addition, subtraction and multiplication are exact within
// those 38 digits; a result that needs more is rounded half away from zero in its last digit,
// and so is every quotient. Money never passes through binary floating point.
class Decimal
{
public:
    static constexpr int kMaxDigits = 38;
    static constexpr int kMaxExponent = 127;
    static constexpr int kMinExponent = -128;

    enum class Rounding {
        HalfAwayFromZero, // the plain mode: 2.345 -> 2.35, -2.345 -> -2.35
        HalfEven,         // the display mode of number formatters: 2.345 -> 2.34
        Down,             // toward zero
        Up,               // away from zero
    };

    Decimal() = default;
    Decimal(int value); // NOLINT(google-explicit-constructor): integers are exact decimals
    Decimal(std::int64_t value);
    // coefficient × 10^exponent, rounded to 38 digits; throws DecimalError when out of range.
    Decimal(const mpz_class &coefficient, long exponent);

    static Decimal notANumber();
    // Plain or scientific notation ("-12.50", "1e-3"); nullopt for anything else,
    // including empty text, blanks, "NaN" and infinities.
    static std::optional<Decimal> parse(std::string_view text);

    bool isNaN() const { return m_nan; }
    bool isZero() const { return !m_nan && m_coefficient == 0; }
    bool isNegative() const { return !m_nan && m_coefficient < 0; }
    int sign() const;

    Decimal operator+(const Decimal &other) const;
    Decimal operator-(const Decimal &other) const;
    Decimal operator*(const Decimal &other) const;
    // Throws DecimalError (DivisionByZero) for a zero divisor.
    Decimal operator/(const Decimal &other) const;
    Decimal operator-() const;
    Decimal &operator+=(const Decimal &other) { return *this = *this + other; }
    Decimal &operator-=(const Decimal &other) { return *this = *this - other; }
    Decimal &operator*=(const Decimal &other) { return *this = *this * other; }

    // Rounds to `scale` digits after the decimal point (negative scales round to tens, hundreds).
    Decimal rounded(int scale, Rounding mode) const;

    // NaN compares unequal to everything, itself included, and unordered.
    bool operator==(const Decimal &other) const;
    std::partial_ordering operator<=>(const Decimal &other) const;

    // Plain notation without exponent and without trailing fraction zeros: "20.02", "0", "-0.5".
    // NaN prints as "NaN".
    std::string toString() const;
    // Plain notation with exactly `scale` fraction digits after rounding half away from zero.
    std::string toFixedString(int scale) const;

    // Integer part, truncated toward zero; saturates at the type's limits; NaN gives 0.
    std::int64_t toInt64() const;
    std::int32_t toInt32() const;

    mpz_class coefficient() const;
    int exponent() const { return m_exponent; }

private:
    // 38 decimal digits always fit into 128 bits (10^38 < 2^127), so the common case runs on
    // machine integers; only results that would overflow them take the arbitrary-precision path.
    __extension__ typedef __int128 Int128;

    Decimal(Int128 coefficient, int exponent, bool normalized);
    void normalize(); // strip trailing zeros; the coefficient already has at most 38 digits

    Int128 m_coefficient = 0;
    int m_exponent = 0;
    bool m_nan = false;
};

// Raised where the decimal library of the original platform raised: overflow, underflow,
// division by zero. Callers turn it into a message for the user.
class DecimalError : public std::runtime_error
{
public:
    enum class Kind { Overflow, Underflow, DivisionByZero };
    DecimalError(Kind kind, const char *what) : std::runtime_error(what), m_kind(kind) {}
    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};
