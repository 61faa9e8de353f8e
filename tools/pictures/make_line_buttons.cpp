// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/artwork.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace pictures {

namespace {

// The picture sits above the caption on a 61 x 65 button: 52 x 40 logical
// pixels, stored at twice that so it stays sharp on a HiDPI screen.
constexpr int kWidth = 52;
constexpr int kHeight = 40;
constexpr int kStored = 2;

// Rows (0 top, 1 middle, 2 bottom) each pay line passes, left to right.
constexpr int kLineRows[9][5] = {
    {1, 1, 1, 1, 1}, {0, 0, 0, 0, 0}, {2, 2, 2, 2, 2},
    {0, 1, 0, 1, 0}, {2, 1, 2, 1, 2}, {1, 2, 1, 2, 1},
    {1, 0, 1, 0, 1}, {0, 0, 1, 2, 2}, {2, 2, 1, 0, 0},
};

// Pay line k is drawn in palette colour k.
const QColor kLineColours[9] = {
    {0, 0, 128}, {0, 128, 0}, {0, 128, 128}, {128, 0, 0}, {128, 0, 128},
    {128, 128, 0}, {192, 192, 192}, {128, 128, 128}, {0, 0, 255},
};

QImage linesPicture(int lines)
{
    QImage image(kWidth * kStored, kHeight * kStored, QImage::Format_RGB32);
    image.fill(Qt::black);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(kStored, kStored);

    // Five white reel strips on black, three cells each, as on the machine.
    const double cellW = 9, cellH = 11.5, gap = 1.25;
    const double left = (kWidth - (5 * cellW + 4 * gap)) / 2;
    const double top = (kHeight - 3 * cellH) / 2;
    auto centre = [&](int column, int row) {
        return QPointF(left + column * (cellW + gap) + cellW / 2, top + row * cellH + cellH / 2);
    };
    for (int c = 0; c < 5; ++c) {
        p.fillRect(QRectF(left + c * (cellW + gap), top, cellW, 3 * cellH), Qt::white);
        p.setPen(QPen(QColor(205, 205, 205), 0.8));
        for (int r = 1; r < 3; ++r)
            p.drawLine(QPointF(left + c * (cellW + gap), top + r * cellH),
                       QPointF(left + c * (cellW + gap) + cellW, top + r * cellH));
    }

    // Line 1 on top; the silver line gets a grey edge to stand out on white.
    p.setBrush(Qt::NoBrush);
    for (int k = lines; k >= 1; --k) {
        QPainterPath path(centre(0, kLineRows[k - 1][0]));
        for (int c = 1; c < 5; ++c)
            path.lineTo(centre(c, kLineRows[k - 1][c]));
        if (k == 7) {
            p.setPen(QPen(QColor(90, 90, 90), 3.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            p.drawPath(path);
        }
        p.setPen(QPen(kLineColours[k - 1], 2.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawPath(path);
    }
    return image;
}

}  // namespace

bool makeLineButtons(const QString& folder)
{
    bool ok = true;
    for (int lines : {1, 3, 5, 7, 9})
        ok = linesPicture(lines).save(folder + '/' + QString::number(lines) + ".jpg", "JPG", 95) && ok;
    return ok;
}

}  // namespace pictures
