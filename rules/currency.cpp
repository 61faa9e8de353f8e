// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/currency.h"

#include <cmath>

namespace {

__extension__ typedef __int128 Wide;

Currency clamp(Wide raw)
{
    if (raw > INT64_MAX)
        return Currency::max();
    if (raw < INT64_MIN)
        return Currency::min();
    return Currency::fromRaw(static_cast<std::int64_t>(raw));
}

// q / d rounded to the nearest integer, halves to even (d > 0, small).
template <class Int>
Int divideHalfEven(Int q, Int d)
{
    Int whole = q / d;  // truncates towards zero
    Int rest = q % d;   // same sign as q
    Int twice = 2 * (rest < 0 ? -rest : rest);
    if (twice > d || (twice == d && (whole % 2 != 0)))
        whole += (q < 0) ? -1 : 1;
    return whole;
}

// x rounded to the nearest integer, halves to even, in the default rounding
// mode: adding and taking away 2^52 leaves no fraction bits (|x| < 2^52).
double roundHalfEven(double x)
{
    constexpr double kShift = 4503599627370496.0;  // 2^52
    return x >= 0 ? (x + kShift) - kShift : (x - kShift) + kShift;
}

}  // namespace

Currency Currency::fromWhole(std::int64_t whole)
{
    return clamp(static_cast<Wide>(whole) * kScale);
}

Currency Currency::fromDouble(double value)
{
    if (std::isnan(value))
        return Currency();
    // value x 10,000 = scaled + lost exactly: the fused multiply-add gives
    // the part that the rounded product lost.
    const double scaled = value * static_cast<double>(kScale);
    auto lost = [&] { return std::fma(value, static_cast<double>(kScale), -scaled); };
    constexpr double k2p52 = 4503599627370496.0;        // 2^52
    constexpr double kBeyond = 9223372036854779904.0;   // 2^63 + 4096
    if (std::fabs(scaled) < k2p52) {
        // Nearest to scaled; only an exact half of scaled can be decided by
        // the lost part, which is smaller than half a unit of scaled.
        double rounded = roundHalfEven(scaled);
        const double off = scaled - rounded;
        if (off == 0.5 && lost() > 0)
            rounded += 1;
        else if (off == -0.5 && lost() < 0)
            rounded -= 1;
        return fromRaw(static_cast<std::int64_t>(rounded));
    }
    if (scaled >= kBeyond)
        return max();
    if (scaled <= -kBeyond)
        return min();
    // scaled is a whole number here; the lost part may still hold a
    // fraction (up to 1024 in size near 2^63).
    const double error = lost();
    const double below = std::floor(error);
    const double fraction = error - below;
    Wide whole = static_cast<Wide>(scaled) + static_cast<Wide>(below);
    if (fraction > 0.5 || (fraction == 0.5 && whole % 2 != 0))
        whole += 1;
    return clamp(whole);
}

double Currency::toDouble() const
{
    return static_cast<double>(raw_) / kScale;
}

Currency Currency::operator+(Currency o) const
{
    std::int64_t sum;
    if (__builtin_add_overflow(raw_, o.raw_, &sum))
        return o.raw_ > 0 ? max() : min();
    return fromRaw(sum);
}

Currency Currency::operator-(Currency o) const
{
    std::int64_t difference;
    if (__builtin_sub_overflow(raw_, o.raw_, &difference))
        return o.raw_ < 0 ? max() : min();
    return fromRaw(difference);
}

Currency Currency::operator*(Currency o) const
{
    std::int64_t product;
    if (!__builtin_mul_overflow(raw_, o.raw_, &product))
        return fromRaw(divideHalfEven<std::int64_t>(product, kScale));
    // Both raws are at most 2^63 in size, so their product fits in 127 bits.
    return clamp(divideHalfEven<Wide>(static_cast<Wide>(raw_) * o.raw_, kScale));
}

Currency Currency::times10() const
{
    return clamp(static_cast<Wide>(raw_) * 10);
}

Currency Currency::dividedBy10() const
{
    return fromDouble(toDouble() / 10.0);
}

std::int64_t Currency::roundWhole() const
{
    return divideHalfEven<std::int64_t>(raw_, kScale);
}

std::strong_ordering Currency::compareWhole(std::int64_t whole) const
{
    return static_cast<Wide>(raw_) <=> static_cast<Wide>(whole) * kScale;
}

std::size_t Currency::writeText(char* out) const
{
    // Work on the magnitude as unsigned so that min() has one too.
    const bool negative = raw_ < 0;
    std::uint64_t magnitude = negative ? 0 - static_cast<std::uint64_t>(raw_)
                                       : static_cast<std::uint64_t>(raw_);
    std::uint64_t whole = magnitude / kScale;
    std::uint64_t fraction = magnitude % kScale;

    char digits[20];
    int count = 0;
    do {
        digits[count++] = static_cast<char>('0' + whole % 10);
        whole /= 10;
    } while (whole != 0);

    std::size_t n = 0;
    if (negative)
        out[n++] = '-';
    while (count > 0)
        out[n++] = digits[--count];
    if (fraction != 0) {
        out[n++] = '.';
        for (std::uint64_t unit = kScale / 10; fraction != 0; unit /= 10) {
            out[n++] = static_cast<char>('0' + fraction / unit);
            fraction %= unit;
        }
    }
    return n;
}

std::string Currency::text() const
{
    char buffer[kTextCapacity];
    return std::string(buffer, writeText(buffer));
}

std::string Currency::printed() const
{
    std::string result = raw_ < 0 ? std::string() : std::string(" ");
    result += text();
    result += ' ';
    return result;
}
