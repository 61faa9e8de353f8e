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
    int channel_ = -1;
    struct Chunk;
    Chunk* chunk_ = nullptr;
};

// A short alert sound, heard on any desktop with an audio device.
void systemBeep();

// The empty-name wave-sound call the spin makes once per pass: plays nothing.
int sndPlaySoundA(const char* name, unsigned flags);
