#pragma once
// What the main window's tests share: a working folder holding the game's
// pictures (all of them, or only some), fast pacing, and a ready window.
#include "game/slot_machine.h"
#include "platform/pacing.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QStringList>
#include <QTest>

#include <memory>

namespace fixture {

// Copies the named files from the game's assets into dir (created fresh).
inline void stock(const QString& dir, const QStringList& files)
{
    QDir(dir).removeRecursively();
    QDir().mkpath(dir);
    const QString assets = qEnvironmentVariable("REELMOOR_ASSETS");
    for (const QString& f : files)
        QFile::copy(assets + "/" + f, dir + "/" + f);
}

inline QStringList lineButtonPictures() { return {"1.jpg", "3.jpg", "5.jpg", "7.jpg", "9.jpg"}; }

inline QStringList symbols(int count)
{
    QStringList files;
    for (int i = 0; i < count; ++i)
        files << QString::number(i) + ".emf";
    return files;
}

inline QStringList everything()
{
    return QDir(qEnvironmentVariable("REELMOOR_ASSETS")).entryList(QDir::Files);
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

// Waits for the settlement of the spin under way (or one about to start).
inline bool waitSettled(slot_machine& w, int ms = 20000)
{
    QSignalSpy spy(&w, &slot_machine::settled);
    return spy.count() > 0 || spy.wait(ms);
}
}
