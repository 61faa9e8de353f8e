// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's sound player: a file name (setting it plays the file from its
// start, "" stops) and a play count. One player plays one file at a time; a
// new file replaces the old one. Other sounds (the beep) may overlap it.
// With no audio device everything here is silent and nothing fails.
#include <string>

class MediaPlayer {
public:
    MediaPlayer();
    ~MediaPlayer();
    MediaPlayer(const MediaPlayer&) = delete;
    MediaPlayer& operator=(const MediaPlayer&) = delete;

    void setPlayCount(int count);                 // how many times in a row the next file plays
    int playCount() const { return playCount_; }
    void setFileName(const std::string& name);    // plays name from the working directory; "" stops
    const std::string& fileName() const { return fileName_; }
    bool playing() const;

private:
    int playCount_ = 1;
    std::string fileName_;
    int channel_;  // the mixer channel this player owns
};

// Lets the audio device rest when nothing plays: call it a while after the
// last sound started; true once all is quiet (the device is then closed and
// uses no processor time; the next sound opens it again).
bool restAudioWhenSilent();

// A short alert sound, heard on any desktop with an audio device.
void systemBeep();
