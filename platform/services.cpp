// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/services.h"

#include "platform/random.h"
#include "platform/sound/media_player.h"

#include <QCoreApplication>
#include <QMessageBox>

#include <unistd.h>

namespace {
class DeviceSound : public SoundOutput {
public:
    void play(const std::string& file, int count) override
    {
        player_.setPlayCount(count);
        player_.setFileName(file);
    }
    void beep() override { systemBeep(); }
    bool restWhenSilent() override { return restAudioWhenSilent(); }

private:
    MediaPlayer player_;
};

bool messageBox(QWidget* parent, MessageKind kind, const QString& caption, const QString& text)
{
    if (kind == MessageKind::Warning)
        return QMessageBox::warning(parent, caption, text), true;
    const bool question = kind == MessageKind::Question;
    QMessageBox box(QMessageBox::NoIcon, caption, text, question ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok,
                    parent);
    const int answer = box.exec();
    return !question || answer == QMessageBox::Yes;
}
}

Services desktopServices()
{
    return {
        rnd::fromTimeOfDay(),
        Pacing{},
        std::make_shared<DeviceSound>(),
        messageBox,
        [](bool) { QCoreApplication::quit(); },
        [](int fd, const unsigned char* data, std::size_t size) { return long(::write(fd, data, size)); },
    };
}
