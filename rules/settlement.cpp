// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/settlement.h"

#include "rules/pay.h"
#include "rules/paylines.h"

#include <algorithm>

namespace {

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

}  // namespace

Currency readBank(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);

    bool negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }

    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction =
        point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    if (whole.empty() && fraction.empty())
        return Currency();
    for (char c : whole)
        if (!isDigit(c))
            return Currency();
    for (char c : fraction)
        if (!isDigit(c))
            return Currency();

    std::int64_t magnitude = 0;
    bool beyond = false;
    for (char c : whole) {
        magnitude = magnitude * 10 + (c - '0');
        if (magnitude > Currency::kMaxWhole) {
            beyond = true;
            break;
        }
    }
    if (!beyond && !fraction.empty()) {
        // Halves to even: exactly ".5" (trailing zeros allowed) goes to the
        // even neighbour, anything above a half goes up.
        const bool aboveHalf = fraction[0] > '5'
            || (fraction[0] == '5' && fraction.substr(1).find_first_not_of('0') != std::string_view::npos);
        const bool half = fraction[0] == '5' && !aboveHalf;
        if (aboveHalf || (half && magnitude % 2 == 1))
            ++magnitude;
        beyond = magnitude > Currency::kMaxWhole;
    }
    if (beyond)
        magnitude = Currency::kMaxWhole;
    return Currency::fromWhole(negative ? -magnitude : magnitude);
}

LinePayout linePayout(Currency value, Currency creditsPerLine)
{
    const Currency x = value * creditsPerLine;
    LinePayout result{x.roundedWhole(), x > Currency()};
    if (result.paying)
        result.credits = result.credits + creditsPerLine;
    return result;
}

Settlement settle(std::string_view bankText, int lines, Currency creditsPerLine, bool bothWays,
                  const Grid& symbols)
{
    Settlement s;
    const Currency start = Currency::fromWhole(kStartingBank);

    s.bank = readBank(bankText);
    s.bet = creditsPerLine * Currency::fromWhole(lines);
    if (bothWays)
        s.bet = s.bet + s.bet;
    s.bank = s.bank - s.bet;

    if (isPlayableLineCount(lines)) {
        for (int k = 1; k <= lines; ++k)
            s.leftToRight[static_cast<std::size_t>(k - 1)] =
                pay(symbols, s.winning, lineCells(k, Reading::LeftToRight));
        if (bothWays)
            for (int k = 1; k <= lines; ++k)
                s.rightToLeft[static_cast<std::size_t>(k - 1)] =
                    pay(symbols, s.winning, lineCells(k, Reading::RightToLeft));
    }

    auto credit = [&](const std::array<Currency, kPayLineCount>& values, bool& pays) {
        for (int k = 1; k <= kPayLineCount; ++k) {
            const LinePayout p = linePayout(values[static_cast<std::size_t>(k - 1)], creditsPerLine);
            s.totalPaid = s.totalPaid + p.credits;
            if (p.paying) {
                s.shownLines.push_back(k);
                pays = true;
            }
        }
    };
    credit(s.leftToRight, s.paysLeftToRight);
    credit(s.rightToLeft, s.paysRightToLeft);

    s.paid = s.totalPaid > Currency();
    // At the top of the range the bank stays a whole number of credits.
    if (s.paid)
        s.bank = std::min(s.bank + s.totalPaid, Currency::fromWhole(Currency::kMaxWhole));

    s.runCells = s.winning;
    s.jackpot = s.totalPaid >= Currency::fromWhole(kJackpotFactor) * creditsPerLine;
    if (s.jackpot)
        s.winning.fill(true);

    s.bankBeforeRefill = s.bank;
    s.refilled = s.bank <= Currency();
    if (s.refilled)
        s.bank = start;

    s.net = s.bank - start;
    s.netLoss = s.net < Currency();
    return s;
}
