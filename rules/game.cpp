// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/game.h"

#include <cmath>

Currency Game::bet() const
{
    Currency bet = creditsPerLine_ * Currency::fromWhole(lines_);
    return bothWays_ ? bet * Currency::fromWhole(2) : bet;
}

void Game::chooseLines(int button) { lines_ = kLineChoices.at(static_cast<std::size_t>(button)); }

void Game::chooseCredits(int button)
{
    chosenCredits_ = button;
    creditsPerLine_ = Currency::fromDouble((button + 1) * std::pow(10.0, creditScale_));
}

bool Game::timesTen()
{
    if (!canTimesTen())
        return false;
    creditsPerLine_ = creditsPerLine_.times10();
    ++creditScale_;
    return true;
}

bool Game::dividedByTen()
{
    if (!canDivideByTen())
        return false;
    creditsPerLine_ = creditsPerLine_.dividedBy10();
    --creditScale_;
    return true;
}

std::string Game::creditCaption(int button) const
{
    return std::to_string(std::llround((button + 1) * std::pow(10.0, creditScale_))) + " credits per line";
}

bool Game::betMax()
{
    const bool turned = !bothWays_;
    bothWays_ = true;
    chooseCredits(kCreditChoices - 1);
    chooseLines(static_cast<int>(kLineChoices.size()) - 1);
    return turned;
}

Settlement Game::settle(std::string_view bankText)
{
    const Settlement s = ::settle(bankText, lines_, creditsPerLine_, bothWays_, symbols_);
    bank_ = s.bankBeforeRefill;
    return s;
}
