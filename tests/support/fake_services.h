// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Services for tests: nothing reaches the desktop, and whatever the game
// asked of the world outside is noted — sounds, beeps, messages, the end of
// the program, the winners file's writes. The animations run fast.
#include "platform/random.h"
#include "platform/services.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <cerrno>
#include <memory>
#include <unistd.h>

namespace fixture {

struct World {
    // The media player: its file and count as last set ("" when stopped),
    // and every file it was asked to play, in turn.
    std::string playing;
    int playCount = 1;
    QStringList played;
    int beeps = 0;

    QList<MessageKind> kinds;  // each message shown, its kind...
    QStringList messages;      // ...and its text
    bool answer = true;        // what the player answers a question
    QList<bool> ends;          // each end of the program: whether the table was stored

    // The winners file's writes take at most chunk bytes each, as a pipe or a
    // busy disk may; once room bytes have gone, a write fails for a full disk.
    std::size_t chunk = 100;
    std::size_t room = std::size_t(-1);
    QByteArray written;  // every byte the writes took
};

class FakeSound : public SoundOutput {
public:
    explicit FakeSound(std::shared_ptr<World> world) : world_(std::move(world)) {}
    void play(const std::string& file, int count) override
    {
        world_->playing = file;
        world_->playCount = count;
        if (!file.empty())
            world_->played << QString::fromStdString(file);
    }
    void beep() override { ++world_->beeps; }
    bool restWhenSilent() override { return true; }

private:
    std::shared_ptr<World> world_;
};

// The world is shared with the services handed out, so that a window which
// outlives its test case still has it.
struct Fakes {
    std::shared_ptr<World> world = std::make_shared<World>();
    World* operator->() const { return world.get(); }

    // draw: the random source; by default one seeded from the time of day.
    Services services(std::function<float()> draw = rnd::fromTimeOfDay()) const
    {
        Services s;
        s.draw = std::move(draw);
        s.pacing = {1, 1, 0.0};  // reels stop the moment a spin starts
        s.sound = std::make_shared<FakeSound>(world);
        s.message = [w = world](QWidget*, MessageKind kind, const QString&, const QString& text) {
            w->kinds << kind;
            w->messages << text;
            return w->answer;
        };
        s.endProgram = [w = world](bool stored) { w->ends << stored; };
        s.write = [w = world](int fd, const unsigned char* data, std::size_t size) -> long {
            if (w->room == 0) {
                errno = ENOSPC;
                return -1;
            }
            const long n = long(::write(fd, data, std::min({size, w->chunk, w->room})));
            if (n > 0) {
                w->room -= std::size_t(n);
                w->written.append(reinterpret_cast<const char*>(data), n);
            }
            return n;
        };
        return s;
    }
};
}
