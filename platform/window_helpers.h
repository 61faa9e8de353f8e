#pragma once
// Small window-system services the game's windows share.
#include <QString>

#include <functional>

class QWidget;

namespace win {
constexpr int kTwipsPerPixel = 15;
constexpr double twips(double t) { return t / kTwipsPerPixel; }

// Places a top-level window in the middle of its screen.
void centreOnScreen(QWidget* window);

// A modal message with an OK button; tests replace it through messageHook.
void showMessage(QWidget* parent, const QString& caption, const QString& text);
extern std::function<void(const QString& caption, const QString& text)> messageHook;
}
