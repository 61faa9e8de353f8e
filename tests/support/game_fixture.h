// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What the window tests share: folders stocked with the game's files, a
// scripted random source, and a main window opened in a folder.
#include "game/main_window.h"
#include "tests/support/asset_folder.h"
#include "tests/support/fake_services.h"

#include <QDir>
#include <QSignalSpy>

#include <deque>
#include <memory>

namespace fixture {

// Runs fn with dir as the working directory.
template <typename Fn>
auto inDir(const QString& dir, Fn fn)
{
    const QString before = QDir::currentPath();
    QDir::setCurrent(dir);
    struct Back {
        QString to;
        ~Back() { QDir::setCurrent(to); }
    } back{before};
    return fn();
}

inline std::unique_ptr<MainWindow> open(const QString& dir, const Services& services)
{
    return inDir(dir, [&] { return std::make_unique<MainWindow>(services); });
}

// Draws the numbers given, then 0.75 for ever.
struct Script {
    std::shared_ptr<std::deque<float>> numbers = std::make_shared<std::deque<float>>();
    void add(float r, int times = 1) { numbers->insert(numbers->end(), std::size_t(times), r); }
    // The draw that rests a reel on symbol s of 50.
    void addSymbol(int s) { add((12.0f * float(s) + 6.0f) / 600.0f); }
    Draw draw() const
    {
        return [n = numbers, next = std::make_shared<std::size_t>(0)] {
            return *next < n->size() ? (*n)[(*next)++] : 0.75f;
        };
    }
};

inline bool waitSettled(MainWindow& w, int ms = 20000)
{
    QSignalSpy spy(&w, &MainWindow::settled);
    return spy.count() > 0 || spy.wait(ms);
}

template <typename T = QWidget>
T* child(const QWidget& w, const QString& name)
{
    return w.findChild<T*>(name);
}
}
