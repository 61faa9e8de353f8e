#pragma once
// The arithmetic of settling one spin, free of any window: what the main
// window's calculatepayoff then shows, in the order it shows it.
#include "rules/currency.h"

#include <array>
#include <string_view>
#include <vector>

inline constexpr std::int64_t kStartingBank = 2500;

struct Settlement {
    Currency bank;                       // after the bet, the wins and any refill
    Currency bet;
    std::array<Currency, 24> linewin{};  // k-1: line k left to right, k+8: right to left
    Currency totalpaid;
    std::vector<int> displaylineCalls;   // pay lines to show, in call order
    bool winright = false;
    bool winleft = false;
    std::array<bool, 16> winning{};      // cells of paying runs (entry 0 unused)
    bool paid = false;                   // totalpaid > 0: credited and strobed
    bool jackpot = false;                // totalpaid >= 8000 x creditsperline: second strobe
    bool refilled = false;               // bank was <= 0 and became 2500
    Currency net;                        // bank - 2500
    bool netLoss = false;                // "NET LOSS" in red, else "NET GAIN" in black
};

// Reads the bank from the text of the total-credits box: a whole number,
// halves to even. See the implementation for what a text that is no number
// reads as.
Currency readBank(std::string_view text);

// symbol: the symbol in each cell 1..15 (entry 0 unused).
Settlement settle(std::string_view bankText, int lines, Currency creditsperline, bool bothways,
                  const std::array<int, 16>& symbol);
