// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/window_helpers.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <cmath>

namespace win {
int pointsToPixels(double points) { return static_cast<int>(std::lround(points * 96.0 / 72.0)); }

QFont courierBold(double points)
{
    QFont f(QStringLiteral("Courier New"));
    f.setStyleHint(QFont::TypeWriter);
    f.setBold(true);
    f.setPixelSize(pointsToPixels(points));
    return f;
}

namespace {
void centre(QWidget* window)
{
    QScreen* screen = window->screen() ? window->screen() : QGuiApplication::primaryScreen();
    if (!screen)
        return;
    const QRect area = screen->geometry();
    const QSize outer = window->frameGeometry().size();
    window->move(area.x() + (area.width() - outer.width()) / 2,
                 area.y() + (area.height() - outer.height()) / 2);
}

// A window centred before the window system framed it sits low by half its
// title bar: once the frame is known, it is centred again, once.
// It has no meta-object of its own, so it is found by its name.
constexpr const char* kCentreWhenFramed = "centreWhenFramed";

class CentreWhenFramed : public QObject {
public:
    explicit CentreWhenFramed(QObject* parent) : QObject(parent) { setObjectName(kCentreWhenFramed); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        auto* window = static_cast<QWidget*>(watched);
        if ((event->type() == QEvent::Move || event->type() == QEvent::Resize) &&
            window->frameGeometry().size() != window->size()) {
            deleteLater();
            window->removeEventFilter(this);
            centre(window);
        }
        return false;
    }
};
}

void centreOnScreen(QWidget* window)
{
    centre(window);
    if (window->frameGeometry().size() == window->size() &&
        !window->windowFlags().testFlag(Qt::FramelessWindowHint) &&
        !window->findChild<QObject*>(kCentreWhenFramed, Qt::FindDirectChildrenOnly))
        window->installEventFilter(new CentreWhenFramed(window));
}
}
