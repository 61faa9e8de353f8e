#include "rules/pay.h"

LineReading readLine(int s1, int s2, int s3, int s4, int s5)
{
    const int f1 = figureOf(s1), f2 = figureOf(s2), f3 = figureOf(s3), f4 = figureOf(s4);
    const int k1 = colourOf(s1), k2 = colourOf(s2), k3 = colourOf(s3), k4 = colourOf(s4);
    std::uint8_t marked = 0;

    // Identical symbols: 1.75 per figure step for two, ten times more per
    // further cell.
    double matchpay = 0;
    if (s1 == s2) {
        marked |= 0b00011;
        matchpay = (f1 + 1.0) * 1.75;
        if (s2 == s3) {
            marked |= 0b00100;
            matchpay *= 10;
            if (s3 == s4) {
                marked |= 0b01000;
                matchpay *= 10;
                if (s4 == s5) {
                    marked |= 0b10000;
                    matchpay *= 10;
                }
            }
        }
    }

    // One figure: three cells or more; the fifth cell only counts when it
    // holds the very symbol of the fourth.
    std::int64_t figurepay = 0;
    if (f1 == f2 && f2 == f3) {
        marked |= 0b00111;
        figurepay = (f1 + std::int64_t{1}) * 3;
        if (f3 == f4) {
            marked |= 0b01000;
            figurepay *= 10;
            if (s4 == s5) {
                marked |= 0b10000;
                figurepay *= 10;
            }
        }
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

Currency pay(const std::array<int, 16>& symbol, std::array<bool, 16>& winning,
             int c1, int c2, int c3, int c4, int c5)
{
    const LineReading r = readLine(symbol[c1], symbol[c2], symbol[c3], symbol[c4], symbol[c5]);
    const int cells[5] = {c1, c2, c3, c4, c5};
    for (int i = 0; i < 5; ++i)
        if (r.marked & (1u << i))
            winning[cells[i]] = true;
    return r.value;
}
