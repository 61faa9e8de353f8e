// SPDX-License-Identifier: GPL-2.0-or-later
// From process start to the main window shown and idle: prints the seconds
// and the resident memory then. Run in a folder that holds the game's assets.
#include "game/game_start.h"
#include "proc_stats.h"
#include "screens/splash.h"

#include <QApplication>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    auto* splash = new SplashScreen;
    if (!startGame(splash, desktopServices()))
        return 1;
    QTimer::singleShot(0, [] {
        std::printf("startup_ms %.1f rss_mb %.1f\n", proc::sinceProcessStart() * 1000, proc::residentMB());
        QCoreApplication::exit(0);
    });
    return app.exec();
}
