// SPDX-License-Identifier: GPL-2.0-or-later
// Spins in a row at the largest bet with the reels, flashes and sounds on
// short timers: reports the resident memory after the thirtieth spin and
// after the last, and the growth between. Run in a folder that holds the
// game's assets. Usage: bench_soak [spins, default 300]
#include "game/main_window.h"
#include "platform/services.h"
#include "proc_stats.h"

#include <QApplication>
#include <QPushButton>
#include <QSignalSpy>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int spins = argc > 1 ? std::atoi(argv[1]) : 300;
    Services services = desktopServices();
    services.pacing = {1, 1, 0.01};  // reels stop 20 to 60 ms after the click
    services.endProgram = [](bool) {};
    auto* w = new MainWindow(services);
    if (!w->startupError().isEmpty())
        return 1;
    auto* betMax = w->findChild<QPushButton*>(QStringLiteral("betMaxButton"));
    double after30 = 0;
    int settled = 0;
    for (int spin = 1; spin <= spins; ++spin) {
        QSignalSpy done(w, &MainWindow::settled);
        betMax->click();
        settled += done.wait(60000) ? 1 : 0;
        if (spin == 30)
            after30 = proc::residentMB();
    }
    const double last = proc::residentMB();
    std::printf("soak spins %d settled %d rss_mb_after_30 %.1f rss_mb_after_%d %.1f growth_mb %+.1f\n", spins,
                settled, after30, spins, last, last - after30);
    w->setAttribute(Qt::WA_DeleteOnClose, false);
    delete w;
    return settled == spins ? 0 : 1;
}
