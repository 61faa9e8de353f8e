// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Services for tests: nothing reaches the desktop, whatever the game asked of
// the world outside is noted, and the animations run fast.
#include "platform/random.h"
#include "platform/services.h"

#include <QByteArray>
#include <QStringList>

#include <cerrno>
#include <unistd.h>

namespace fixture {

struct World : SoundOutput {
    std::string playing;  // the media player's file as last set ("" stopped)...
    int playCount = 1;    // ...its count, and every file it was asked to play
    QStringList played;
    int beeps = 0;
    QList<MessageKind> kinds;  // each message shown, its kind and text
    QStringList messages;
    bool answer = true;  // what the player answers a question
    QList<bool> ends;    // each end of the program: whether the table was stored
    // The winners file's writes take at most chunk bytes each, as a busy disk
    // may; once room bytes have gone, a write fails as on a full disk.
    std::size_t chunk = 100, room = std::size_t(-1);
    QByteArray written;

    void play(const std::string& file, int count) override
    {
        playing = file;
        playCount = count;
        if (!file.empty())
            played << QString::fromStdString(file);
    }
    void beep() override { ++beeps; }
    bool restWhenSilent() override { return true; }
    long write(int fd, const unsigned char* data, std::size_t size)
    {
        if (room == 0)
            return errno = ENOSPC, -1;
        const long n = long(::write(fd, data, std::min({size, chunk, room})));
        room -= std::size_t(std::max(n, 0L));
        written.append(reinterpret_cast<const char*>(data), std::max(n, 0L));
        return n;
    }
};

// The world is shared with the services handed out, so that a window which
// outlives its test case still has it. draw: by default seeded from the clock.
struct Fakes {
    std::shared_ptr<World> world = std::make_shared<World>();
    World* operator->() const { return world.get(); }
    Services services(std::function<float()> draw = rnd::fromTimeOfDay()) const
    {
        const std::shared_ptr<World> w = world;
        return {std::move(draw), Pacing{1, 1, 0.0}, w,
                [w](QWidget*, MessageKind kind, const QString&, const QString& text) {
                    w->kinds << kind;
                    w->messages << text;
                    return w->answer;
                },
                [w](bool stored) { w->ends << stored; },
                [w](int fd, const unsigned char* data, std::size_t size) { return w->write(fd, data, size); }};
    }
};
}
