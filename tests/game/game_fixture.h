#pragma once
// What the main window's tests share: the files a folder is stocked with,
// fast pacing, and a ready window.
#include "game/slot_machine.h"
#include "platform/pacing.h"
#include "tests/support/asset_folder.h"

#include <QDir>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include <memory>

namespace fixture {

inline QStringList lineButtonPictures() { return {"1.jpg", "3.jpg", "5.jpg", "7.jpg", "9.jpg"}; }

inline QStringList symbols(int count)
{
    QStringList files;
    for (int i = 0; i < count; ++i)
        files << QString::number(i) + ".emf";
    return files;
}

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

inline void fastPacing()
{
    pacing().passMs = 1;
    pacing().tickMs = 1;
    pacing().timerScale = 0.02;  // reels stop 40 to 120 ms after the click
}

// Whether exactly the first n of the pay lines' hundred segments show.
inline bool firstSegmentsShown(slot_machine& w, int n)
{
    for (int i = 1; i <= 100; ++i)
        if (w.Linem(i).visible != (i <= n))
            return false;
    return true;
}

// Waits for the settlement of the spin under way (or one about to start).
inline bool waitSettled(slot_machine& w, int ms = 20000)
{
    QSignalSpy spy(&w, &slot_machine::settled);
    return spy.count() > 0 || spy.wait(ms);
}
}
