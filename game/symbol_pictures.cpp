// The symbol pictures, the twelve frames of the rolling strip built from them,
// and the random draws of the grid.
#include "game/reel_surface.h"
#include "game/slot.h"
#include "game/slot_machine.h"
#include "platform/emf/emf_picture.h"
#include "platform/random.h"

#include <QPainter>

#include <cmath>

namespace {
constexpr int kMaxSymbols = 50;

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

// Symbol s comes from the file "s.emf"; loading stops quietly at the first
// file that cannot be loaded, and the symbols before it are the ones in play.
bool slot_machine::loadSymbolPictures()
{
    Pic1arr.clear();
    slot::symbolPictures.clear();
    int i = 0;
    while (i < kMaxSymbols) {
        auto picture = EmfPicture::load(QString::number(i) + QStringLiteral(".emf"));
        if (!picture)
            break;
        // Drawn at its own size from the top-left corner, clipped to the buffer.
        QImage buffer = whiteBuffer(kSymbolSize, dpr_);
        QPainter painter(&buffer);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setClipRect(QRect(0, 0, kSymbolSize, kSymbolSize));
        picture->paintNatural(painter);
        painter.end();
        Pic1arr.push_back(std::move(buffer));
        slot::symbolPictures.push_back(std::move(*picture));
        ++i;
    }
    slot::maxsymbol = i - 1;
    if (slot::maxsymbol < 0) {
        startupError_ = QStringLiteral("0.emf");
        return false;
    }
    return true;
}

// Frame m of symbol j shows symbol j moved down by offsets(m) with the next
// symbol on the strip coming in from the top; the strip wraps to symbol 0.
void slot_machine::buildFramePictures()
{
    const int symbols = slot::maxsymbol + 1;
    int offsets[kFrames];
    for (int m = 0; m < kFrames; ++m)
        offsets[m] = static_cast<int>(std::nearbyint(m * static_cast<double>(kSymbolSize) / kFrames));

    // Offsets in device pixels, so a HiDPI strip moves by whole device pixels.
    auto device = [this](int logical) { return static_cast<int>(std::lround(logical * dpr_)); };
    const int width = device(kSymbolSize);

    Image2.clear();
    Image2.reserve(static_cast<size_t>(symbols) * kFrames);
    for (int j = 0; j < symbols; ++j) {
        const int n = (j + 1 > slot::maxsymbol) ? 0 : j + 1;
        Image2.push_back(Pic1arr[j]);
        // Composed in device pixels; each finished frame takes the ratio back.
        QImage next = Pic1arr[n];
        QImage self = Pic1arr[j];
        next.setDevicePixelRatio(1.0);
        self.setDevicePixelRatio(1.0);
        for (int m = 1; m < kFrames; ++m) {
            QImage frame(width, width, QImage::Format_ARGB32_Premultiplied);
            frame.fill(Qt::white);
            QPainter painter(&frame);
            painter.drawImage(QPoint(0, 0), next, QRect(0, device(offsets[kFrames - m]), width, device(offsets[m])));
            painter.drawImage(QPoint(0, device(offsets[m])), self, QRect(0, 0, width, device(offsets[kFrames - m])));
            painter.end();
            frame.setDevicePixelRatio(dpr_);
            Image2.push_back(std::move(frame));
        }
    }
}

// Frame 0 of a symbol drawn with equal chances: the picture number of a cell
// at rest.
static int drawRestingPicture()
{
    const int pictures = (slot::maxsymbol + 1) * slot_machine::kFrames;
    const float x = rnd::draw() * static_cast<float>(slot::maxsymbol + 1) * static_cast<float>(slot_machine::kFrames);
    int p = static_cast<int>(x);
    if (p % slot_machine::kFrames > 0)
        p -= p % slot_machine::kFrames;
    if (p > pictures - 1)  // single precision can round up to the end of the range
        p = 0;
    return p;
}

void slot_machine::loadrand()
{
    for (int i = 1; i <= 15; ++i)
        cell[i] = drawRestingPicture();
}

void slot_machine::loadimages()
{
    for (int i = 1; i <= 15; ++i) {
        cell[i] = drawRestingPicture();
        setImage1(i, Image2[static_cast<size_t>(cell[i])]);
    }
}
