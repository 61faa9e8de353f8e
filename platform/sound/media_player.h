#pragma once
// The game's sound player: a file name (setting it plays the file, "" stops),
// a play count, and a play position. One player plays one file at a time; a
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
    void setPosition(int position);               // play position; 0 = from the start
    int position() const { return position_; }
    bool playing() const;

private:
    int playCount_ = 1;
    int position_ = 0;
    std::string fileName_;
    int channel_;  // the mixer channel this player owns
};

// Lets the audio device rest when nothing plays: call it a while after the
// last sound started; true once all is quiet (the device is then closed and
// uses no processor time; the next sound opens it again).
bool restAudioWhenSilent();

// A short alert sound, heard on any desktop with an audio device.
void systemBeep();

// The wave-sound call the spin makes once per pass with an empty name: an
// empty or null name plays nothing and gives 0. A file name plays that file
// once over the other sounds, without waiting for it (the flags are not
// used), and gives 1 when it started.
int sndPlaySoundA(const char* name, unsigned flags);
