// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What the table takes and promises: 1, 3, 5, 7 or 9 lines; one to ten
// credits per line (times a power of ten); a bank of 2500 to start with and
// after going broke; and a jackpot for a spin that pays 8000 times the
// credits per line.
#include <array>
#include <cstdint>

inline constexpr std::array<int, 5> kLineChoices{1, 3, 5, 7, 9};
inline constexpr int kCreditChoices = 10;
inline constexpr std::int64_t kStartingBank = 2500;
inline constexpr std::int64_t kJackpotFactor = 8000;
