// SPDX-License-Identifier: GPL-2.0-or-later
#include "rules/pay.h"

double matchRunValue(int figure, int count)
{
    double value = (figure + 1.0) * 1.75;
    for (int n = 2; n < count; ++n)
        value *= 10;
    return value;
}

std::int64_t figureRunValue(int figure, int count)
{
    std::int64_t value = (figure + std::int64_t{1}) * 3;
    for (int n = 3; n < count; ++n)
        value *= 10;
    return value;
}

LineReading readLine(int s1, int s2, int s3, int s4, int s5)
{
    const int f1 = figureOf(s1), f2 = figureOf(s2), f3 = figureOf(s3), f4 = figureOf(s4);
    const int k1 = colourOf(s1), k2 = colourOf(s2), k3 = colourOf(s3), k4 = colourOf(s4);
    std::uint8_t marked = 0;

    // Identical symbols: 1.75 per figure step for two, ten times more per
    // further cell.
    double matchpay = 0;
    if (s1 == s2) {
        const int run = s2 != s3 ? 2 : s3 != s4 ? 3 : s4 != s5 ? 4 : 5;
        marked |= static_cast<std::uint8_t>((1u << run) - 1);
        matchpay = matchRunValue(f1, run);
    }

    // One figure: three cells or more; the fifth cell only counts when it
    // holds the very symbol of the fourth.
    std::int64_t figurepay = 0;
    if (f1 == f2 && f2 == f3) {
        const int run = f3 != f4 ? 3 : s4 != s5 ? 4 : 5;
        marked |= static_cast<std::uint8_t>((1u << run) - 1);
        figurepay = figureRunValue(f1, run);
    }

    // One colour: paid from the sum of the symbol numbers; each further cell
    // replaces the value rather than multiplying it.
    double colorpay = 0;
    if (k1 == k2 && k2 == k3) {
        marked |= 0b00111;
        const std::int64_t sum3 = std::int64_t{s1} + s2 + s3;
        colorpay = static_cast<double>(sum3 / 5 + 1) / 3;
        if (k3 == k4) {
            marked |= 0b01000;
            const std::int64_t sum4 = sum3 + s4;
            colorpay = static_cast<double>(sum4 / 5 + 1) / 1.5;
            if (s4 == s5) {
                marked |= 0b10000;
                colorpay = static_cast<double>((sum4 + s5) / 5 + 1);
            }
        }
    }

    return {Currency::fromDouble(matchpay + static_cast<double>(figurepay) + colorpay), marked};
}

Currency pay(const Grid& symbols, CellFlags& winning, const std::array<int, kColumns>& cells)
{
    auto at = [&](int i) { return symbols[static_cast<std::size_t>(cells[static_cast<std::size_t>(i)])]; };
    const LineReading r = readLine(at(0), at(1), at(2), at(3), at(4));
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (r.marked & (1u << i))
            winning[static_cast<std::size_t>(cells[i])] = true;
    return r.value;
}
