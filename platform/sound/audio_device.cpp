// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/sound/audio_device.h"

#include "platform/sound/beep_tone.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <unordered_map>
#include <vector>

namespace sound {
namespace {

constexpr int sampleRate = 44100;
constexpr int bufferFrames = 1024;   // about 23 ms: a beep follows its cause closely
constexpr int sharedChannels = 32;   // for beeps that overlap each other

enum class State { closed, open, failed, exiting };

struct Device {
    State state = State::closed;
    bool toldNoSound = false;
    bool closesAtExit = false;
    std::unordered_map<std::string, Mix_Chunk*> chunks;
    Mix_Chunk* beep = nullptr;
    std::vector<bool> claimed;  // channel index -> owned by a player
};

Device& device()
{
    static Device d;
    return d;
}

int reservedChannels()
{
    return int(device().claimed.size());
}

void applyReservation()
{
    const int reserved = reservedChannels();
    if (Mix_AllocateChannels(-1) < reserved + sharedChannels)
        Mix_AllocateChannels(reserved + sharedChannels);
    Mix_ReserveChannels(reserved);
}

// ALSA reports a missing card with a screenful of lines of its own; the
// game says it once, in one line.
extern "C" void quietAlsaHandler(const char*, int, const char*, int, const char*, ...) {}

void quietAlsa()
{
    using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
    using SetHandler = int (*)(Handler);
    static void* alsa = dlopen("libasound.so.2", RTLD_LAZY | RTLD_LOCAL);  // kept loaded
    if (!alsa)
        return;
    if (auto set = reinterpret_cast<SetHandler>(dlsym(alsa, "snd_lib_error_set_handler")))
        set(quietAlsaHandler);
}

// The desktop's sound controls list the stream under the game's name and
// icon (the one its menu entry installs), saying what it carries. The sound
// server's client library takes the icon from the environment; a player's
// own setting there wins.
void nameTheStream()
{
    SDL_SetHint(SDL_HINT_APP_NAME, "reelmoor");
    SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_NAME, "Game sounds");
    setenv("PULSE_PROP_application.icon_name", REELMOOR_APP_ID, 0);
}

void closeAtExit()
{
    closeAudio();
    device().state = State::exiting;
}

bool open()
{
    Device& d = device();
    quietAlsa();
    // The disk and dummy drivers announce themselves as critical messages.
    const SDL_LogPriority audioLog = SDL_LogGetPriority(SDL_LOG_CATEGORY_AUDIO);
    SDL_LogSetPriority(SDL_LOG_CATEGORY_AUDIO, SDL_NUM_LOG_PRIORITIES);
    // SDL would otherwise take over Ctrl+C and SIGTERM for events nobody reads.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    nameTheStream();
    std::string failure;
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        failure = SDL_GetError();
    } else if (Mix_OpenAudio(sampleRate, AUDIO_S16SYS, 2, bufferFrames) != 0) {
        failure = Mix_GetError();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    SDL_LogSetPriority(SDL_LOG_CATEGORY_AUDIO, audioLog);
    if (!failure.empty()) {
        if (!d.toldNoSound)
            std::fprintf(stderr, "reelmoor: playing without sound (%s)\n", failure.c_str());
        d.toldNoSound = true;
        return false;
    }
    applyReservation();
    if (!d.closesAtExit)
        std::atexit(closeAtExit);
    d.closesAtExit = true;
    return true;
}

}  // namespace

bool audioReady()
{
    Device& d = device();
    if (d.state == State::closed)
        d.state = open() ? State::open : State::failed;
    return d.state == State::open;
}

bool audioOpen()
{
    return device().state == State::open;
}

void closeAudio()
{
    Device& d = device();
    if (d.state == State::open) {
        Mix_HaltChannel(-1);
        for (auto& [name, chunk] : d.chunks)
            Mix_FreeChunk(chunk);
        if (d.beep)
            Mix_FreeChunk(d.beep);
        Mix_CloseAudio();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }
    d.chunks.clear();
    d.beep = nullptr;
    if (d.state != State::exiting)
        d.state = State::closed;
}

bool closeIfSilent()
{
    if (!audioOpen())
        return true;
    if (Mix_Playing(-1) != 0)
        return false;
    closeAudio();
    return true;
}

Mix_Chunk* cachedChunk(const std::string& name)
{
    Device& d = device();
    if (!audioReady() || name.empty())
        return nullptr;
    if (auto found = d.chunks.find(name); found != d.chunks.end())
        return found->second;
    Mix_Chunk* chunk = Mix_LoadWAV(name.c_str());
    if (chunk)  // a missing file is looked for again next time
        d.chunks.emplace(name, chunk);
    return chunk;
}

Mix_Chunk* beepChunk()
{
    Device& d = device();
    if (!audioReady())
        return nullptr;
    if (!d.beep) {
        const auto bytes = wav::encode(beepTone(sampleRate));
        d.beep = Mix_LoadWAV_RW(SDL_RWFromConstMem(bytes.data(), int(bytes.size())), 1);
    }
    return d.beep;
}

int claimChannel()
{
    auto& claimed = device().claimed;
    std::size_t channel = 0;
    while (channel < claimed.size() && claimed[channel])
        ++channel;
    if (channel == claimed.size())
        claimed.push_back(true);
    claimed[channel] = true;
    if (audioOpen())
        applyReservation();
    return int(channel);
}

void releaseChannel(int channel)
{
    auto& claimed = device().claimed;
    if (channel < 0 || std::size_t(channel) >= claimed.size())
        return;
    if (audioOpen())
        Mix_HaltChannel(channel);
    claimed[std::size_t(channel)] = false;
}

}  // namespace sound
