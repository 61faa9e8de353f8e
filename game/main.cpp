// SPDX-License-Identifier: GPL-2.0-or-later
// reelmoor: starts with the splash screen, which starts the game.
#include "game/game_start.h"
#include "screens/splash.h"

#include <QApplication>
#include <QStyleFactory>

#include <cstdio>
#include <cstdlib>

namespace {
bool hasDisplay()
{
    auto set = [](const char* name) {
        const char* v = std::getenv(name);
        return v && *v;
    };
    return set("QT_QPA_PLATFORM") || set("DISPLAY") || set("WAYLAND_DISPLAY");
}
}

int main(int argc, char** argv)
{
    if (!hasDisplay()) {
        std::fputs("reelmoor needs a graphical desktop: no display is set (DISPLAY or WAYLAND_DISPLAY).\n", stderr);
        return 1;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("reelmoor"));
    QApplication::setApplicationVersion(QStringLiteral("%1.%2.%3")
                                            .arg(REELMOOR_VERSION_MAJOR)
                                            .arg(REELMOOR_VERSION_MINOR)
                                            .arg(REELMOOR_VERSION_PATCH));
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.reelmoor.Reelmoor"));
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    auto* splash = new SplashScreen;
    if (!startGame(splash, desktopServices()))
        return 1;
    return app.exec();
}
