// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Small window-system services the game's windows share.
#include <QColor>
#include <QFont>
#include <QString>

class QWidget;

namespace win {
// Windows are designed in twips, 15 to a pixel, and type in points at 96
// dots per inch, rounded to whole pixels as the classic desktop does
// (6.75 pt -> 9 px, 14.25 pt -> 19 px).
constexpr int kTwipsPerPixel = 15;
constexpr double twips(double t) { return t / kTwipsPerPixel; }
int pointsToPixels(double points);

// The game's colours: the light grey face of windows and buttons, the
// yellow of a chosen button, the red of the bet and of a loss.
inline const QColor kFace{224, 224, 224};
inline const QColor kChosen{255, 255, 0};
inline const QColor kRed{255, 0, 0};

// The game's type: Courier New, bold (Liberation Mono on Linux).
QFont courierBold(double points);

// Places a top-level window in the middle of its screen, frame included
// when the window system has told its size.
void centreOnScreen(QWidget* window);
}
