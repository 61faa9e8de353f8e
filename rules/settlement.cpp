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

LinePayout linePayout(Currency value, Currency creditsperline)
{
    const Currency x = value * creditsperline;
    LinePayout result{x.roundedWhole(), x > Currency()};
    if (result.paying)
        result.credits = result.credits + creditsperline;
    return result;
}

Settlement settle(std::string_view bankText, int lines, Currency creditsperline, bool bothways,
                  const std::array<int, 16>& symbol)
{
    Settlement s;
    const Currency start = Currency::fromWhole(kStartingBank);

    s.bank = readBank(bankText);
    s.bet = creditsperline * Currency::fromWhole(lines);
    if (bothways)
        s.bet = s.bet + s.bet;
    s.bank = s.bank - s.bet;

    if (isPlayableLineCount(lines)) {
        for (int k = 1; k <= lines; ++k) {
            const auto c = lineCells(k, Reading::LeftToRight);
            s.linewin[k - 1] = pay(symbol, s.winning, c[0], c[1], c[2], c[3], c[4]);
        }
        if (bothways) {
            for (int k = 1; k <= lines; ++k) {
                const auto c = lineCells(k, Reading::RightToLeft);
                s.linewin[k + 8] = pay(symbol, s.winning, c[0], c[1], c[2], c[3], c[4]);
            }
        }
    }

    for (int i = 0; i <= 8; ++i) {
        const LinePayout p = linePayout(s.linewin[i], creditsperline);
        s.totalpaid = s.totalpaid + p.credits;
        if (p.paying) {
            s.displaylineCalls.push_back(i + 1);
            s.winright = true;
        }
    }
    for (int i = 9; i <= 17; ++i) {
        const LinePayout p = linePayout(s.linewin[i], creditsperline);
        s.totalpaid = s.totalpaid + p.credits;
        if (p.paying) {
            s.winleft = true;
            s.displaylineCalls.push_back(i - 8);
        }
    }

    s.paid = s.totalpaid > Currency();
    // At the top of the range the bank stays a whole number of credits.
    if (s.paid)
        s.bank = std::min(s.bank + s.totalpaid, Currency::fromWhole(Currency::kMaxWhole));

    s.runCells = s.winning;
    s.jackpot = s.totalpaid >= Currency::fromWhole(8000) * creditsperline;
    if (s.jackpot)
        for (int cell = 1; cell <= 15; ++cell)
            s.winning[cell] = true;

    s.refilled = s.bank <= Currency();
    if (s.refilled)
        s.bank = start;

    s.net = s.bank - start;
    s.netLoss = s.net < Currency();
    return s;
}
