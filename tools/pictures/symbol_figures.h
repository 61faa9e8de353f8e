// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The ten figures of the game's symbols, drawn as metafile records. Each is
// designed in a 73 x 73 pixel box and can be placed anywhere at any scale and
// angle, so the symbol files and the splash picture share one drawing.
#include "tools/pictures/emf_writer.h"

#include <string>

namespace pictures {

constexpr int kFigures = 10;
constexpr int kColours = 5;
constexpr double kBox = 73;  // the figures' design box, pixels

struct Colours {
    U_COLORREF fill;
    U_COLORREF outline;  // a darker shade of fill
    U_COLORREF light;    // a lighter shade, for highlights
};

// Red, green, blue, gold and purple: colour c of every figure.
Colours symbolColours(int colour);
// What symbol s is called: its colour and figure, "red circle" for 0.
std::u16string symbolName(int symbol);

// Where the design box lands: its top-left corner at (x, y) in the page's
// pixels, scaled by `scale` and turned by `degrees` about its centre.
struct Placement {
    double x = 0;
    double y = 0;
    double scale = 1;
    double degrees = 0;
};

// Draws figure 0 (plainest) to 9 (grandest) in the given colours. Saves and
// restores the drawing state around itself; leaves no objects behind.
void drawFigure(EmfWriter& emf, int figure, const Colours& colours, const Placement& at = {});

}  // namespace pictures
