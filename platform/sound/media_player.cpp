// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/sound/media_player.h"

#include "platform/sound/audio_device.h"

#include <SDL_mixer.h>

MediaPlayer::MediaPlayer()
    : channel_(sound::claimChannel())
{
}

MediaPlayer::~MediaPlayer()
{
    sound::releaseChannel(channel_);
}

void MediaPlayer::setPlayCount(int count)
{
    playCount_ = count;
}

void MediaPlayer::setFileName(const std::string& name)
{
    fileName_ = name;
    if (sound::audioOpen())
        Mix_HaltChannel(channel_);
    if (name.empty())
        return;
    if (Mix_Chunk* chunk = sound::cachedChunk(name)) {
        const int repeats = playCount_ > 1 ? playCount_ - 1 : 0;  // plays once, then repeats
        Mix_PlayChannel(channel_, chunk, repeats);
    }
}

bool MediaPlayer::playing() const
{
    return sound::audioOpen() && Mix_Playing(channel_) != 0;
}

void systemBeep()
{
    if (Mix_Chunk* beep = sound::beepChunk())
        Mix_PlayChannel(-1, beep, 0);  // on any free channel; none free means no beep
}

bool restAudioWhenSilent()
{
    return sound::closeIfSilent();
}
