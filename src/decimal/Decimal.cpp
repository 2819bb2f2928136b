#include "Decimal.h"

#include <algorithm>
#include <array>
#include <limits>

namespace {

__extension__ typedef __int128 Int128;
__extension__ typedef unsigned __int128 UInt128;

constexpr std::array<UInt128, 39> makePowersOfTen()
{
    std::array<UInt128, 39> p{};
    p[0] = 1;
    for (std::size_t i = 1; i < p.size(); ++i)
        p[i] = p[i - 1] * 10;
    return p;
}
constexpr auto kPow10 = makePowersOfTen();

UInt128 magnitude(Int128 v)
{
    return v < 0 ? UInt128(0) - UInt128(v) : UInt128(v);
}

const mpz_class &mpzPow10(unsigned long n)
{
    static const std::array<mpz_class, 400> table = [] {
        std::array<mpz_class, 400> t;
        t[0] = 1;
        for (std::size_t i = 1; i < t.size(); ++i)
            t[i] = t[i - 1] * 10;
        return t;
    }();
    if (n < table.size())
        return table[n];
    thread_local mpz_class big;
    mpz_ui_pow_ui(big.get_mpz_t(), 10, n);
    return big;
}

std::size_t mpzDigitCount(const mpz_class &v)
{
    if (v == 0)
        return 1;
    std::size_t n = mpz_sizeinbase(v.get_mpz_t(), 10); // exact or one too many
    return mpz_cmpabs(v.get_mpz_t(), mpzPow10(n - 1).get_mpz_t()) < 0 ? n - 1 : n;
}

mpz_class toMpz(Int128 v)
{
    UInt128 m = magnitude(v);
    mpz_class hi = static_cast<unsigned long>(static_cast<std::uint64_t>(m >> 64));
    mpz_class lo = static_cast<unsigned long>(static_cast<std::uint64_t>(m));
    mpz_class r = (hi << 64) + lo;
    return v < 0 ? mpz_class(-r) : r;
}

Int128 fromMpz(const mpz_class &v) // |v| < 10^38 guaranteed by the caller
{
    mpz_class m = abs(v);
    mpz_class hi = m >> 64;
    mpz_class lo = m - (hi << 64);
    UInt128 r = (UInt128(hi.get_ui()) << 64) | UInt128(lo.get_ui());
    return v < 0 ? -Int128(r) : Int128(r);
}

// Divides |value| by 10^drop and rounds by `mode`; `sticky` says that nonzero digits were
// already lost below the dropped ones (a division remainder), which breaks exact ties.
mpz_class roundAway(const mpz_class &value, unsigned long drop, Decimal::Rounding mode, bool sticky)
{
    if (drop == 0)
        return value;
    const mpz_class &divisor = mpzPow10(drop);
    mpz_class m = abs(value);
    mpz_class q, r;
    mpz_tdiv_qr(q.get_mpz_t(), r.get_mpz_t(), m.get_mpz_t(), divisor.get_mpz_t());
    bool up = false;
    if (r != 0 || sticky) {
        switch (mode) {
        case Decimal::Rounding::Down:
            break;
        case Decimal::Rounding::Up:
            up = true;
            break;
        case Decimal::Rounding::HalfAwayFromZero:
        case Decimal::Rounding::HalfEven: {
            const int c = cmp(r * 2, divisor);
            if (c > 0 || (c == 0 && sticky))
                up = true;
            else if (c == 0)
                up = mode == Decimal::Rounding::HalfAwayFromZero || mpz_odd_p(q.get_mpz_t());
            break;
        }
        }
    }
    if (up)
        ++q;
    return value < 0 ? mpz_class(-q) : q;
}

} // namespace

Decimal::Decimal(int value) : Decimal(static_cast<std::int64_t>(value)) {}

Decimal::Decimal(std::int64_t value) : m_coefficient(value)
{
    normalize();
}

Decimal::Decimal(Int128 coefficient, int exponent, bool normalized)
    : m_coefficient(coefficient), m_exponent(exponent)
{
    if (!normalized)
        normalize();
}

Decimal::Decimal(const mpz_class &coefficient, long exponent)
{
    mpz_class c = coefficient;
    long e = exponent;
    if (c == 0) {
        return;
    }
    // The surplus digits go in one division before any zeros are stripped: stripping a
    // coefficient of a million digits one zero at a time would take quadratic time. Rounding
    // first gives the same value, since stripped zeros never change how the rest rounds.
    const std::size_t digits = mpzDigitCount(c);
    if (digits > kMaxDigits) {
        const unsigned long drop = digits - kMaxDigits;
        c = roundAway(c, drop, Rounding::HalfAwayFromZero, false);
        e += long(drop);
    }
    while (mpz_divisible_ui_p(c.get_mpz_t(), 10)) {
        c /= 10;
        ++e;
    }
    if (e < kMinExponent) {
        c = roundAway(c, static_cast<unsigned long>(kMinExponent - e), Rounding::HalfAwayFromZero, false);
        e = kMinExponent;
        if (c == 0)
            throw DecimalError(DecimalError::Kind::Underflow, "decimal underflow");
    }
    while (e > kMaxExponent && mpzDigitCount(c) < std::size_t(kMaxDigits)) {
        c *= 10;
        --e;
    }
    if (e > kMaxExponent)
        throw DecimalError(DecimalError::Kind::Overflow, "decimal overflow");
    m_coefficient = fromMpz(c);
    m_exponent = int(e);
    normalize();
}

Decimal Decimal::notANumber()
{
    Decimal d;
    d.m_nan = true;
    return d;
}

std::optional<Decimal> Decimal::parse(std::string_view text)
{
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-'))
        negative = text[i++] == '-';
    std::string digits;
    long fractionDigits = 0;
    bool seenPoint = false;
    bool anyDigit = false;
    for (; i < text.size(); ++i) {
        const char ch = text[i];
        if (ch >= '0' && ch <= '9') {
            anyDigit = true;
            if (!digits.empty() || ch != '0')
                digits.push_back(ch);
            if (seenPoint)
                ++fractionDigits;
        } else if (ch == '.' && !seenPoint) {
            seenPoint = true;
        } else {
            break;
        }
    }
    if (!anyDigit)
        return std::nullopt;
    long exponent = 0;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        ++i;
        bool expNegative = false;
        if (i < text.size() && (text[i] == '+' || text[i] == '-'))
            expNegative = text[i++] == '-';
        bool anyExpDigit = false;
        for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i) {
            anyExpDigit = true;
            exponent = std::min(exponent * 10 + (text[i] - '0'), 1000000L);
        }
        if (!anyExpDigit)
            return std::nullopt;
        if (expNegative)
            exponent = -exponent;
    }
    if (i != text.size())
        return std::nullopt;
    if (digits.empty())
        return Decimal();
    mpz_class c(digits, 10);
    if (negative)
        c = -c;
    try {
        return Decimal(c, exponent - fractionDigits);
    } catch (const DecimalError &) {
        return std::nullopt;
    }
}

void Decimal::normalize()
{
    if (m_nan)
        return;
    if (m_coefficient == 0) {
        m_exponent = 0;
        return;
    }
    while (m_coefficient % 10 == 0) {
        m_coefficient /= 10;
        ++m_exponent;
    }
}

int Decimal::sign() const
{
    if (m_nan || m_coefficient == 0)
        return 0;
    return m_coefficient < 0 ? -1 : 1;
}

mpz_class Decimal::coefficient() const
{
    return toMpz(m_coefficient);
}

Decimal Decimal::operator+(const Decimal &other) const
{
    if (m_nan || other.m_nan)
        return notANumber();
    if (m_coefficient == 0)
        return other;
    if (other.m_coefficient == 0)
        return *this;
    const Decimal &high = m_exponent >= other.m_exponent ? *this : other;
    const Decimal &low = m_exponent >= other.m_exponent ? other : *this;
    const int shift = high.m_exponent - low.m_exponent;
    if (shift < 39) {
        Int128 scaled;
        Int128 sum;
        if (!__builtin_mul_overflow(high.m_coefficient, Int128(kPow10[shift]), &scaled)
            && !__builtin_add_overflow(scaled, low.m_coefficient, &sum)
            && magnitude(sum) < kPow10[kMaxDigits]) {
            return Decimal(sum, low.m_exponent, false);
        }
    }
    return Decimal(toMpz(high.m_coefficient) * mpzPow10(shift) + toMpz(low.m_coefficient), low.m_exponent);
}

Decimal Decimal::operator-() const
{
    Decimal d = *this;
    d.m_coefficient = -d.m_coefficient;
    return d;
}

Decimal Decimal::operator-(const Decimal &other) const
{
    return *this + (-other);
}

Decimal Decimal::operator*(const Decimal &other) const
{
    if (m_nan || other.m_nan)
        return notANumber();
    Int128 product;
    const long exponent = long(m_exponent) + other.m_exponent;
    if (!__builtin_mul_overflow(m_coefficient, other.m_coefficient, &product)
        && magnitude(product) < kPow10[kMaxDigits] && exponent >= kMinExponent && exponent <= kMaxExponent) {
        return Decimal(product, int(exponent), false);
    }
    return Decimal(toMpz(m_coefficient) * toMpz(other.m_coefficient), exponent);
}

Decimal Decimal::operator/(const Decimal &other) const
{
    if (m_nan || other.m_nan)
        return notANumber();
    if (other.m_coefficient == 0)
        throw DecimalError(DecimalError::Kind::DivisionByZero, "decimal division by zero");
    if (m_coefficient == 0)
        return Decimal();
    const mpz_class a = abs(toMpz(m_coefficient));
    const mpz_class b = abs(toMpz(other.m_coefficient));
    // Scale the dividend so that the quotient has at least two digits more than are kept;
    // the remainder then only breaks ties.
    const long scale = std::max(0L, long(kMaxDigits + 2) - long(mpzDigitCount(a)) + long(mpzDigitCount(b)));
    const mpz_class n = a * mpzPow10(static_cast<unsigned long>(scale));
    mpz_class q, r;
    mpz_tdiv_qr(q.get_mpz_t(), r.get_mpz_t(), n.get_mpz_t(), b.get_mpz_t());
    const std::size_t digits = mpzDigitCount(q);
    const unsigned long drop = digits > std::size_t(kMaxDigits) ? digits - kMaxDigits : 0;
    q = roundAway(q, drop, Rounding::HalfAwayFromZero, r != 0);
    if ((m_coefficient < 0) != (other.m_coefficient < 0))
        q = -q;
    return Decimal(q, long(m_exponent) - other.m_exponent - scale + long(drop));
}

Decimal Decimal::rounded(int scale, Rounding mode) const
{
    if (m_nan || m_coefficient == 0 || -m_exponent <= scale)
        return *this;
    const unsigned long drop = static_cast<unsigned long>(-m_exponent - scale);
    if (drop <= unsigned(kMaxDigits) && -scale <= kMaxExponent) {
        // Cent rounding runs for every item line: keep it on machine integers.
        const UInt128 divisor = kPow10[drop];
        const UInt128 m = magnitude(m_coefficient);
        UInt128 q = m / divisor;
        const UInt128 r = m % divisor;
        bool up = false;
        if (r != 0) {
            switch (mode) {
            case Rounding::Down:
                break;
            case Rounding::Up:
                up = true;
                break;
            case Rounding::HalfAwayFromZero:
            case Rounding::HalfEven: {
                const UInt128 twice = r * 2; // r < 10^38, so this cannot wrap
                up = twice > divisor || (twice == divisor && (mode == Rounding::HalfAwayFromZero || (q & 1) != 0));
                break;
            }
            }
        }
        if (up)
            ++q; // at most 10^38 - 1 + 1 digits; normalize strips the zeros of 10^38
        const Int128 signedQ = m_coefficient < 0 ? -Int128(q) : Int128(q);
        if (q < kPow10[kMaxDigits])
            return Decimal(signedQ, -scale, false);
    }
    return Decimal(roundAway(toMpz(m_coefficient), drop, mode, false), long(-scale));
}

bool Decimal::operator==(const Decimal &other) const
{
    if (m_nan || other.m_nan)
        return false;
    // Both sides are normalised (no trailing zeros), so equal values have equal representations.
    return m_coefficient == other.m_coefficient && m_exponent == other.m_exponent;
}

std::partial_ordering Decimal::operator<=>(const Decimal &other) const
{
    if (m_nan || other.m_nan)
        return std::partial_ordering::unordered;
    const int s1 = sign();
    const int s2 = other.sign();
    if (s1 != s2)
        return s1 <=> s2;
    if (s1 == 0)
        return std::partial_ordering::equivalent;
    const int e = std::min(m_exponent, other.m_exponent);
    const mpz_class a = toMpz(m_coefficient) * mpzPow10(static_cast<unsigned long>(m_exponent - e));
    const mpz_class b = toMpz(other.m_coefficient) * mpzPow10(static_cast<unsigned long>(other.m_exponent - e));
    const int c = cmp(a, b);
    return c < 0 ? std::partial_ordering::less
                 : (c > 0 ? std::partial_ordering::greater : std::partial_ordering::equivalent);
}

namespace {
std::string plainText(bool negative, std::string digits, long exponent, int minFraction)
{
    if (exponent >= 0) {
        digits.append(static_cast<std::size_t>(exponent), '0');
        exponent = 0;
    }
    std::size_t fraction = static_cast<std::size_t>(-exponent);
    if (digits.size() <= fraction)
        digits.insert(0, fraction - digits.size() + 1, '0');
    std::string result = negative ? "-" : "";
    result += digits.substr(0, digits.size() - fraction);
    std::string frac = digits.substr(digits.size() - fraction);
    if (frac.size() < static_cast<std::size_t>(minFraction))
        frac.append(static_cast<std::size_t>(minFraction) - frac.size(), '0');
    if (!frac.empty())
        result += '.' + frac;
    return result;
}
} // namespace

std::string Decimal::toString() const
{
    if (m_nan)
        return "NaN";
    const mpz_class c = toMpz(m_coefficient);
    return plainText(c < 0, mpz_class(abs(c)).get_str(), m_exponent, 0);
}

std::string Decimal::toFixedString(int scale) const
{
    if (m_nan)
        return "NaN";
    const Decimal r = rounded(scale, Rounding::HalfAwayFromZero);
    const mpz_class c = toMpz(r.m_coefficient);
    return plainText(c < 0, mpz_class(abs(c)).get_str(), r.m_exponent, std::max(scale, 0));
}

std::int64_t Decimal::toInt64() const
{
    if (m_nan || m_coefficient == 0)
        return 0;
    mpz_class c = toMpz(m_coefficient);
    if (m_exponent >= 0)
        c *= mpzPow10(static_cast<unsigned long>(m_exponent));
    else
        mpz_tdiv_q(c.get_mpz_t(), c.get_mpz_t(), mpzPow10(static_cast<unsigned long>(-m_exponent)).get_mpz_t());
    if (mpz_fits_slong_p(c.get_mpz_t()))
        return c.get_si();
    return c < 0 ? std::numeric_limits<std::int64_t>::min() : std::numeric_limits<std::int64_t>::max();
}

std::int32_t Decimal::toInt32() const
{
    const std::int64_t v = toInt64();
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(v, std::numeric_limits<std::int32_t>::min(),
                                                              std::numeric_limits<std::int32_t>::max()));
}
