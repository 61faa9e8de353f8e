// SPDX-License-Identifier: GPL-2.0-or-later
#include "disk_capture.h"

#include "platform/sound/audio_device.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

QString capturePath;

}  // namespace

long Capture::firstSoundFrame() const
{
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (samples[i] != 0)
            return long(i / 2);
    return -1;
}

long Capture::lastSoundFrame() const
{
    for (std::size_t i = samples.size(); i-- > 0;)
        if (samples[i] != 0)
            return long(i / 2);
    return -1;
}

int Capture::peak() const
{
    int peak = 0;
    for (auto s : samples)
        peak = std::max(peak, std::abs(int(s)));
    return peak;
}

double Capture::rms() const
{
    double sum = 0;
    for (auto s : samples)
        sum += double(s) * s;
    return samples.empty() ? 0 : std::sqrt(sum / double(samples.size()));
}

Capture Capture::part(std::size_t from, std::size_t to) const
{
    Capture c;
    to = std::min(to, frames());
    if (from < to)
        c.samples.assign(samples.begin() + long(2 * from), samples.begin() + long(2 * to));
    return c;
}

bool Capture::holdsExactly(const wav::Sound& sound, int times) const
{
    // The sound's own leading silence is not told apart from the capture's.
    std::size_t lead = 0;
    while (lead < sound.samples.size() && sound.samples[lead] == 0)
        ++lead;
    const long start = firstSoundFrame();
    if (start < 0 || lead == sound.samples.size())
        return false;
    std::size_t frame = std::size_t(start);
    for (int t = 0; t < times; ++t) {
        for (std::size_t i = t == 0 ? lead : 0; i < sound.samples.size(); ++i, ++frame) {
            if (frame >= frames())
                return false;
            if (std::abs(samples[2 * frame] - sound.samples[i]) > 1
                || std::abs(samples[2 * frame + 1] - sound.samples[i]) > 1)
                return false;
        }
    }
    return lastSoundFrame() < long(frame);
}

void startCapture(const QString& name)
{
    sound::closeAudio();
    capturePath = QDir::current().absoluteFilePath(name);
    QFile::remove(capturePath);
    qputenv("SDL_DISKAUDIOFILE", capturePath.toLocal8Bit());
}

std::size_t capturedFrames()
{
    return std::size_t(QFileInfo(capturePath).size() / 4);
}

void waitForMoreAudio(std::size_t frames)
{
    const std::size_t target = capturedFrames() + frames;
    QElapsedTimer clock;
    clock.start();
    while (capturedFrames() < target && clock.elapsed() < 5000)
        QTest::qWait(2);
}

Capture finishCapture()
{
    waitForMoreAudio(8192);  // what was mixed last reaches the file
    sound::closeAudio();
    return readCapture();
}

Capture readCapture()
{
    Capture capture;
    QFile file(capturePath);
    if (file.open(QIODevice::ReadOnly)) {
        const QByteArray bytes = file.readAll();
        capture.samples.resize(std::size_t(bytes.size()) / 2);
        std::memcpy(capture.samples.data(), bytes.constData(), capture.samples.size() * 2);
    }
    return capture;
}
