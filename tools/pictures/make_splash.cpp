// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/artwork.h"
#include "tools/pictures/symbol_figures.h"

#include <cmath>
#include <cstdint>

namespace pictures {

namespace {

constexpr int kWidth = 452;   // 6780 twips
constexpr int kHeight = 423;  // 6345 twips
constexpr int kSceneBottom = 360;  // below it the title and version are written

int mix(int a, int b, double t)
{
    return int(std::lround(a + (b - a) * t));
}

// A fill without outline in one colour.
void solid(EmfWriter& emf, U_COLORREF colour, const auto& draw)
{
    const std::uint32_t brush = emf.brush(U_BS_SOLID, colour);
    emf.select(brush);
    emf.select(U_NULL_PEN);
    draw();
    emf.select(U_WHITE_BRUSH);
    emf.remove(brush);
}

// Night sky from deep blue to violet and back down to near black, in bands.
void sky(EmfWriter& emf)
{
    const int band = 8;
    for (int y = 0; y < kSceneBottom; y += band) {
        const double t = double(y) / kSceneBottom;
        const double up = t < 0.55 ? t / 0.55 : 1 - (t - 0.55) / 0.45;
        const U_COLORREF c = rgb(mix(12, 62, up), mix(18, 24, up), mix(64, 108, up) - int(20 * t));
        solid(emf, c, [&] { emf.rectangle(U_RECTL{0, y, kWidth + 1, y + band + 1}); });
    }
    solid(emf, rgb(10, 7, 26), [&] {
        emf.rectangle(U_RECTL{0, kSceneBottom, kWidth + 1, kHeight + 1});
    });
}

// Small four-pointed sparkles scattered over the sky, the same every time.
void sparkles(EmfWriter& emf)
{
    std::uint32_t seed = 20240611;
    auto next = [&seed](int range) {
        seed = seed * 1664525u + 1013904223u;
        return int((seed >> 8) % std::uint32_t(range));
    };
    for (int i = 0; i < 26; ++i) {
        const int x = 6 + next(kWidth - 12);
        const int y = 4 + next(kSceneBottom - 110);
        if (y > 112 && y < 262)
            continue;  // behind the reels nobody would see it
        const int r = 2 + next(3);
        const U_COLORREF c = i % 3 == 0 ? rgb(255, 236, 150) : rgb(225, 225, 255);
        solid(emf, c, [&] {
            emf.polygon({point32_set(x, y - 2 * r), point32_set(x + r / 2 + 1, y),
                         point32_set(x, y + 2 * r), point32_set(x - r / 2 - 1, y)});
            emf.polygon({point32_set(x - 2 * r, y), point32_set(x, y - r / 2 - 1),
                         point32_set(x + 2 * r, y), point32_set(x, y + r / 2 + 1)});
        });
    }
}

// Five reels in a dark cabinet showing a winning row.
void reels(EmfWriter& emf)
{
    const std::uint32_t frame = emf.geometricPen(U_PS_SOLID | U_PS_JOIN_ROUND, 3, rgb(245, 190, 40));
    const std::uint32_t cabinet = emf.brush(U_BS_SOLID, rgb(16, 10, 32));
    emf.select(frame);
    emf.select(cabinet);
    emf.roundRect(U_RECTL{38, 122, 414, 252}, U_SIZEL{18, 18});

    const std::uint32_t edge = emf.pen(U_PS_SOLID, 1, rgb(150, 150, 170));
    emf.select(edge);
    emf.select(U_WHITE_BRUSH);
    const int cellW = 64, cellH = 106, gap = 8, left = 50, top = 134;
    for (int i = 0; i < 5; ++i)
        emf.roundRect(U_RECTL{left + i * (cellW + gap), top, left + i * (cellW + gap) + cellW,
                              top + cellH},
                      U_SIZEL{8, 8});
    emf.select(U_BLACK_PEN);
    emf.select(U_WHITE_BRUSH);
    for (std::uint32_t h : {frame, cabinet, edge})
        emf.remove(h);

    const int figures[5][2] = {{8, 3}, {7, 0}, {9, 3}, {7, 0}, {8, 3}};
    const double scale = 0.8;
    for (int i = 0; i < 5; ++i) {
        const double x = left + i * (cellW + gap) + (cellW - kBox * scale) / 2;
        const double y = top + (cellH - kBox * scale) / 2;
        drawFigure(emf, figures[i][0], symbolColours(figures[i][1]), {x, y, scale, 0});
    }
}

void ornaments(EmfWriter& emf)
{
    drawFigure(emf, 9, symbolColours(3), {173, 8, 1.45, 0});
    drawFigure(emf, 8, symbolColours(3), {62, 26, 0.95, -14});
    drawFigure(emf, 8, symbolColours(3), {320, 26, 0.95, 14});
    drawFigure(emf, 7, symbolColours(0), {8, 52, 0.7, -18});
    drawFigure(emf, 3, symbolColours(2), {393, 52, 0.7, 18});
}

// Every figure once, in turn through the colours: what the reels carry.
void figureRow(EmfWriter& emf)
{
    const double size = 36, gap = 6;
    const double left = (kWidth - (10 * size + 9 * gap)) / 2;
    for (int f = 0; f < kFigures; ++f)
        drawFigure(emf, f, symbolColours(f % kColours),
                   {left + f * (size + gap), 284, size / kBox, 0});
    const std::uint32_t line = emf.geometricPen(U_PS_SOLID | U_PS_ENDCAP_ROUND, 2, rgb(245, 190, 40));
    emf.select(line);
    emf.polyline({point32_set(40, 270), point32_set(412, 270)});
    emf.polyline({point32_set(40, 334), point32_set(412, 334)});
    emf.select(U_BLACK_PEN);
    emf.remove(line);
}

}  // namespace

bool makeSplash(const QString& folder)
{
    EmfWriter emf((folder + "/splash.emf").toStdString(), kWidth, kHeight);
    // Nothing may spill past the window's edges.
    emf.add(U_EMRINTERSECTCLIPRECT_set(U_RECTL{0, 0, kWidth, kHeight}));
    sky(emf);
    sparkles(emf);
    ornaments(emf);
    reels(emf);
    figureRow(emf);
    return emf.finish();
}

}  // namespace pictures
