// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// One game at the table: the bank, the bet (lines played, credits per line
// and its power of ten, one or both directions) and the fifteen symbols at
// rest. The main window hands the player's choices to it and shows what it
// answers.
#include "rules/currency.h"
#include "rules/grid.h"
#include "rules/settlement.h"

#include <string>
#include <string_view>

class Game {
public:
    // The highest power of ten "credits times 10" reaches: one more and the
    // largest win of a spin would no longer fit the currency.
    static constexpr int kMaxCreditScale = 8;

    int lines() const { return lines_; }
    int chosenLines() const { return (lines_ - 1) / 2; }  // which of the five lines buttons
    Currency creditsPerLine() const { return creditsPerLine_; }
    int chosenCredits() const { return chosenCredits_; }  // which of the ten credits buttons
    int creditScale() const { return creditScale_; }
    bool bothWays() const { return bothWays_; }
    Currency bet() const;
    std::string betText() const { return bet().text(); }
    // The bank as last settled; what the closing screen ranks.
    Currency bank() const { return bank_; }

    const Grid& symbols() const { return symbols_; }
    void setSymbols(const Grid& symbols) { symbols_ = symbols; }

    // Line button 0..4 plays 1, 3, 5, 7 or 9 lines.
    void chooseLines(int button);
    // Credits button 0..9 bets button + 1 credits per line times the power of ten.
    void chooseCredits(int button);
    // One power of ten more or less on every credits button; false when
    // already at the end of the range.
    bool timesTen();
    bool dividedByTen();
    bool canTimesTen() const { return creditScale_ < kMaxCreditScale; }
    bool canDivideByTen() const { return creditScale_ >= 1; }
    std::string creditCaption(int button) const;
    // Plays both directions when one was played and the other way round.
    void toggleDirections() { bothWays_ = !bothWays_; }
    // The largest bet: both directions, ten credits per line (times the
    // power of ten), nine lines. True when it had to turn both directions on.
    bool betMax();
    // NEW GAME puts this text in the bank box; the bank itself changes only
    // when the next spin settles.
    static std::string newGameBankText() { return std::to_string(kStartingBank); }

    // Settles the symbols at rest against the bank text the player sees. The
    // bank takes the bet and the wins at once and any refill only when the
    // settlement has been shown (endSettlement).
    Settlement settle(std::string_view bankText);
    void endSettlement(const Settlement& s) { bank_ = s.bank; }

private:
    Currency bank_;
    int lines_ = 1;
    Currency creditsPerLine_ = Currency::fromWhole(1);
    int chosenCredits_ = 0;
    int creditScale_ = 0;
    bool bothWays_ = false;
    Grid symbols_{};
};
