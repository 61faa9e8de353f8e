#pragma once
// Small window-system services the game's windows share.
#include <QFont>
#include <QString>

#include <functional>

class QWidget;

namespace win {
constexpr int kTwipsPerPixel = 15;
constexpr double twips(double t) { return t / kTwipsPerPixel; }

// The game's type: Courier New, bold (Liberation Mono on Linux), its height
// rounded to whole pixels at the designed 96 dots per inch as the classic
// desktop does (6.75 pt -> 9 px, 14.25 pt -> 19 px).
QFont courierBold(double points);

// Places a top-level window in the middle of its screen.
void centreOnScreen(QWidget* window);

// A modal message with an OK button; tests replace it through messageHook.
void showMessage(QWidget* parent, const QString& caption, const QString& text);
extern std::function<void(const QString& caption, const QString& text)> messageHook;
}
