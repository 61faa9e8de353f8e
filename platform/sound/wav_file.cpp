// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/sound/wav_file.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace wav {
namespace {

void put16(std::vector<unsigned char>& out, unsigned value)
{
    out.push_back(static_cast<unsigned char>(value & 0xff));
    out.push_back(static_cast<unsigned char>((value >> 8) & 0xff));
}

void put32(std::vector<unsigned char>& out, std::uint32_t value)
{
    put16(out, value & 0xffff);
    put16(out, value >> 16);
}

void putTag(std::vector<unsigned char>& out, const char* tag)
{
    for (int i = 0; i < 4; ++i)
        out.push_back(static_cast<unsigned char>(tag[i]));
}

std::uint32_t get16(const std::vector<unsigned char>& in, std::size_t at)
{
    return std::uint32_t(in[at]) | std::uint32_t(in[at + 1]) << 8;
}

std::uint32_t get32(const std::vector<unsigned char>& in, std::size_t at)
{
    return get16(in, at) | get16(in, at + 2) << 16;
}

bool tagIs(const std::vector<unsigned char>& in, std::size_t at, const char* tag)
{
    return std::equal(tag, tag + 4, in.begin() + std::ptrdiff_t(at));
}

}  // namespace

std::vector<unsigned char> encode(const Sound& sound)
{
    const auto dataBytes = std::uint32_t(sound.samples.size() * 2);
    const auto blockAlign = unsigned(sound.channels * 2);
    std::vector<unsigned char> out;
    out.reserve(44 + dataBytes);
    putTag(out, "RIFF");
    put32(out, 36 + dataBytes);
    putTag(out, "WAVE");
    putTag(out, "fmt ");
    put32(out, 16);
    put16(out, 1);  // PCM
    put16(out, unsigned(sound.channels));
    put32(out, std::uint32_t(sound.rate));
    put32(out, std::uint32_t(sound.rate) * blockAlign);
    put16(out, blockAlign);
    put16(out, 16);
    putTag(out, "data");
    put32(out, dataBytes);
    for (std::int16_t s : sound.samples)
        put16(out, static_cast<std::uint16_t>(s));
    return out;
}

bool write(const std::string& path, const Sound& sound)
{
    const auto bytes = encode(sound);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    return bool(file);
}

std::optional<Sound> decode(const std::vector<unsigned char>& in)
{
    if (in.size() < 12 || !tagIs(in, 0, "RIFF") || !tagIs(in, 8, "WAVE"))
        return std::nullopt;
    Sound sound;
    bool haveFormat = false;
    std::size_t at = 12;
    while (at + 8 <= in.size()) {
        const std::size_t size = get32(in, at + 4);
        const std::size_t body = at + 8;
        if (size > in.size() - body)
            return std::nullopt;
        if (tagIs(in, at, "fmt ")) {
            if (size < 16 || get16(in, body) != 1 || get16(in, body + 14) != 16)
                return std::nullopt;
            sound.channels = int(get16(in, body + 2));
            sound.rate = int(get32(in, body + 4));
            haveFormat = sound.channels > 0 && sound.rate > 0;
        } else if (tagIs(in, at, "data")) {
            if (!haveFormat)
                return std::nullopt;
            sound.samples.resize(size / 2);
            for (std::size_t i = 0; i < sound.samples.size(); ++i)
                sound.samples[i] = static_cast<std::int16_t>(get16(in, body + 2 * i));
            return sound;
        }
        at = body + size + (size & 1);  // chunks are padded to even sizes
    }
    return std::nullopt;
}

std::optional<Sound> read(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::vector<unsigned char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    return decode(bytes);
}

}  // namespace wav
