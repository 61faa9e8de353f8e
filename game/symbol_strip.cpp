// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/symbol_strip.h"

#include "platform/picture/picture_files.h"
#include "rules/reel_motion.h"

#include <QDir>

#include <QPainter>

#include <cmath>

namespace {
// A white buffer of size x size logical pixels at the screen's pixel ratio.
QImage whiteBuffer(int size, double dpr)
{
    const int device = static_cast<int>(std::lround(size * dpr));
    QImage image(device, device, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    image.setDevicePixelRatio(dpr);
    return image;
}
}

bool SymbolStrip::load(double devicePixelRatio)
{
    dpr_ = devicePixelRatio;
    symbols_ = pictures::loadSymbols(QDir::current());
    resting_.clear();
    for (const Picture& picture : symbols_) {
        // A metafile at its own size from the top-left corner, a player's
        // drawing or photo fitted; clipped to the buffer either way.
        QImage buffer = whiteBuffer(kSymbolSize, dpr_);
        QPainter painter(&buffer);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(QRect(0, 0, kSymbolSize, kSymbolSize));
        picture.paintInCell(painter, QSizeF(kSymbolSize, kSymbolSize));
        painter.end();
        resting_.push_back(std::move(buffer));
    }
    if (symbols_.empty())
        return false;
    buildStrip();
    blank_ = QImage(92, 138, QImage::Format_RGB32);
    blank_.fill(Qt::black);
    return true;
}

QString SymbolStrip::name(int s) const
{
    const QString title = symbols_[static_cast<std::size_t>(s)].title();
    return title.isEmpty() ? QStringLiteral("symbol %1").arg(s) : title;
}

// Picture m of symbol j shows symbol j moved down by m twelfths of a cell
// with the next symbol on the strip coming in from the top; the strip wraps
// to symbol 0.
void SymbolStrip::buildStrip()
{
    const int symbols = symbolCount();
    int offsets[kFramesPerSymbol];
    for (int m = 0; m < kFramesPerSymbol; ++m)
        offsets[m] = static_cast<int>(std::nearbyint(m * static_cast<double>(kSymbolSize) / kFramesPerSymbol));

    // Offsets in device pixels, so a HiDPI strip moves by whole device pixels.
    auto device = [this](int logical) { return static_cast<int>(std::lround(logical * dpr_)); };
    const int width = device(kSymbolSize);

    pictures_.clear();
    pictures_.reserve(static_cast<std::size_t>(symbols) * kFramesPerSymbol);
    for (int j = 0; j < symbols; ++j) {
        const int n = j + 1 < symbols ? j + 1 : 0;
        pictures_.push_back(resting_[static_cast<std::size_t>(j)]);
        // Composed in device pixels; each finished picture takes the ratio back.
        QImage next = resting_[static_cast<std::size_t>(n)];
        QImage self = resting_[static_cast<std::size_t>(j)];
        next.setDevicePixelRatio(1.0);
        self.setDevicePixelRatio(1.0);
        for (int m = 1; m < kFramesPerSymbol; ++m) {
            QImage frame(width, width, QImage::Format_ARGB32_Premultiplied);
            frame.fill(Qt::white);
            QPainter painter(&frame);
            const int in = device(offsets[kFramesPerSymbol - m]);
            const int down = device(offsets[m]);
            painter.drawImage(QPoint(0, 0), next, QRect(0, in, width, down));
            painter.drawImage(QPoint(0, down), self, QRect(0, 0, width, in));
            painter.end();
            frame.setDevicePixelRatio(dpr_);
            pictures_.push_back(std::move(frame));
        }
    }
}
