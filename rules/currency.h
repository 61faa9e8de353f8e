// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's money: a signed 64-bit fixed-point amount with four decimal
// places (the value times 10,000 held as an integer). Bank, bets, line values
// and wins are all of this type. No Qt here: the game, the tests and the odds
// tool share it.
//
// Overflow policy: arithmetic saturates at the ends of the range
// (Currency::max() / Currency::min()) instead of wrapping; saturated() tells
// whether a value sits on one of those ends. Saturation is a clamp, not a
// sticky state: max() - 1 is an ordinary value again. fromDouble clamps
// doubles beyond the range (and infinities) the same way.
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>

class Currency {
public:
    static constexpr std::int64_t kScale = 10000;
    // The largest whole amount in range (about 9.2 x 10^14).
    static constexpr std::int64_t kMaxWhole = INT64_MAX / kScale;

    constexpr Currency() = default;
    static constexpr Currency fromRaw(std::int64_t raw) { Currency c; c.raw_ = raw; return c; }
    static Currency fromWhole(std::int64_t whole);   // saturating
    static Currency fromDouble(double value);        // nearest 1/10,000, halves to even; NaN -> 0
    static constexpr Currency max() { return fromRaw(INT64_MAX); }
    static constexpr Currency min() { return fromRaw(INT64_MIN); }

    constexpr std::int64_t raw() const { return raw_; }
    double toDouble() const;
    bool saturated() const { return raw_ == INT64_MAX || raw_ == INT64_MIN; }

    Currency operator+(Currency o) const;  // saturating
    Currency operator-(Currency o) const;  // saturating
    Currency operator*(Currency o) const;  // product of amounts, to the nearest 1/10,000, halves to even
    Currency times10() const;              // exact, saturating
    Currency dividedBy10() const;          // through double, as the menu command does

    // To a whole number, halves to the even neighbour (2.5 -> 2, 3.5 -> 4, -2.5 -> -2).
    std::int64_t roundWhole() const;
    Currency roundedWhole() const { return fromWhole(roundWhole()); }

    // "2500", "37", "-180", "20.8333", "0.6667": plain decimal, no separators,
    // no trailing zeros.
    std::string text() const;
    // The same text written to out (at least kTextCapacity chars, not
    // terminated); returns the number of chars written.
    static constexpr std::size_t kTextCapacity = 24;
    std::size_t writeText(char* out) const;
    // The printed form of a number: a blank before a non-negative value (its
    // sign position) and a blank after it: " 2500 ", "-180 ".
    std::string printed() const;

    constexpr auto operator<=>(const Currency&) const = default;
    constexpr bool operator==(const Currency&) const = default;
    // Exact comparison with a whole number.
    std::strong_ordering compareWhole(std::int64_t whole) const;

private:
    std::int64_t raw_ = 0;
};
