// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What the game asks of the world outside it, in one place: chance, the pace
// of its animations, its sounds, the messages it puts to the player, the end
// of the program and the writes that store the table of winners. The program
// hands the desktop's own to the main window, which passes them on; tests
// hand in their own.
#include "platform/pacing.h"

#include <QString>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>

class QWidget;

// The game's sounds: one file at a time on the media player, and beeps that
// may overlap it.
class SoundOutput {
public:
    virtual ~SoundOutput() = default;
    // Plays a file of the working directory count times in a row, in place
    // of whatever the player played; "" stops it.
    virtual void play(const std::string& file, int count) = 0;
    virtual void beep() = 0;
    // Lets the audio device rest once nothing plays; true when all is quiet.
    virtual bool restWhenSilent() = 0;
};

// A modal message with an OK button, the same with a warning sign, or a
// question answered Yes or No.
enum class MessageKind { Note, Warning, Question };

struct Services {
    std::function<float()> draw;  // uniform numbers in [0, 1)
    Pacing pacing;
    std::shared_ptr<SoundOutput> sound;
    // Shows a message and waits for the player; true when a question was
    // answered Yes (and for every other kind).
    std::function<bool(QWidget* parent, MessageKind kind, const QString& caption, const QString& text)> message;
    // Ends the program; stored tells whether the table of winners was written.
    std::function<void(bool stored)> endProgram;
    // The write that stores the winners file, with write(2)'s contract.
    std::function<long(int fd, const unsigned char* data, std::size_t size)> write;
};

// The desktop's: a generator seeded from the time of day, the audio device,
// message boxes, leaving the event loop and write(2).
Services desktopServices();
