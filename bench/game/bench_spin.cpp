// SPDX-License-Identifier: GPL-2.0-or-later
// CPU used over whole spins, click to controls back, and how evenly the
// passes come. Run in a folder that holds the game's assets.
#include "game/main_window.h"
#include "platform/services.h"
#include "proc_stats.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <vector>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const int spins = argc > 1 ? std::atoi(argv[1]) : 3;
    const Services services = desktopServices();
    auto* w = new MainWindow(services);
    if (!w->startupError().isEmpty())
        return 1;

    std::vector<double> gaps;
    QElapsedTimer clock;
    clock.start();
    double lastPass = -1;
    QObject::connect(w, &MainWindow::passDone, [&] {
        const double now = clock.nsecsElapsed() / 1e6;
        if (lastPass >= 0)
            gaps.push_back(now - lastPass);
        lastPass = now;
    });

    auto* spinButton = w->findChild<QPushButton*>(QStringLiteral("spinButton"));
    double cpu = 0, wall = 0;
    for (int s = 0; s < spins; ++s) {
        lastPass = -1;
        QSignalSpy settled(w, &MainWindow::settled);
        const double cpu0 = proc::cpuSeconds();
        const double wall0 = clock.nsecsElapsed() / 1e9;
        spinButton->click();
        settled.wait(60000);
        cpu += proc::cpuSeconds() - cpu0;
        wall += clock.nsecsElapsed() / 1e9 - wall0;
    }
    // Idle: nothing should run between spins. Let the last sounds end and the
    // audio device rest first.
    QEventLoop settle;
    QTimer::singleShot(4000, &settle, &QEventLoop::quit);
    settle.exec();
    int activeTimers = 0;
    for (QTimer* t : w->findChildren<QTimer*>())
        activeTimers += t->isActive() ? 1 : 0;
    const double idleSeconds = 5;
    const double idleCpu0 = proc::cpuSeconds();
    QEventLoop idle;
    QTimer::singleShot(int(idleSeconds * 1000), &idle, &QEventLoop::quit);
    idle.exec();
    const double idleCpu = proc::cpuSeconds() - idleCpu0;

    const double period = services.pacing.passMs;
    const auto within = std::count_if(gaps.begin(), gaps.end(), [&](double g) { return g <= 1.5 * period; });
    std::sort(gaps.begin(), gaps.end());
    std::printf("spins %d wall_s %.2f cpu_s %.3f cpu_percent %.2f\n", spins, wall, cpu, 100 * cpu / wall);
    std::printf("passes %zu period_ms %.0f within_1.5x %.1f%% median_gap_ms %.2f p99_gap_ms %.2f\n", gaps.size(),
                period, 100.0 * double(within) / double(gaps.size()), gaps[gaps.size() / 2],
                gaps[gaps.size() * 99 / 100]);
    std::printf("idle active_timers %d cpu_ms_over_%.0fs %.1f\n", activeTimers, idleSeconds, idleCpu * 1000);
    delete w;
    return 0;
}
