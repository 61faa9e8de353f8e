// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/preview.h"

#include "platform/emf/emf_picture.h"

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace pictures {

bool writePreview(const QString& folder, const QString& pngPath)
{
    const int cell = 80;
    QImage sheet(5 * cell * 2 + 60 + 452 + 20, 10 * cell + 20 + 140, QImage::Format_RGB32);
    sheet.fill(QColor(200, 200, 200));
    QPainter p(&sheet);
    bool ok = true;
    for (int s = 0; s < 50; ++s) {
        const auto picture = EmfPicture::load(folder + '/' + QString::number(s) + ".emf");
        if (!picture) {
            ok = false;
            continue;
        }
        const int x = 10 + (s % 5) * cell;
        const int y = 10 + (s / 5) * cell;
        p.fillRect(x, y, 73, 73, Qt::white);
        p.save();
        p.translate(x, y);
        picture->paintNatural(p);
        p.restore();
        // The pay table's small size, and the same at twice the pixels.
        const int sx = 10 + 5 * cell + 20 + (s % 5) * 44;
        p.fillRect(sx, y, 38, 38, Qt::white);
        picture->paint(p, QRectF(sx, y, 38, 38));
        QImage hi(76, 76, QImage::Format_RGB32);
        hi.setDevicePixelRatio(2);
        hi.fill(Qt::white);
        QPainter hp(&hi);
        picture->paint(hp, QRectF(0, 0, 38, 38));
        hp.end();
        p.drawImage(QRectF(sx, y + 40, 38, 38), hi);
    }
    if (const auto splash = EmfPicture::load(folder + "/splash.emf")) {
        p.save();
        p.translate(5 * cell * 2 + 50, 10);
        splash->paintNatural(p);
        p.restore();
    } else {
        ok = false;
    }
    // The line buttons at three times their size, the icon and the arrows.
    const int row = 10 * cell + 20;
    int x = 10;
    for (int lines : {1, 3, 5, 7, 9}) {
        const QImage button(folder + '/' + QString::number(lines) + ".jpg");
        ok = ok && !button.isNull();
        p.drawImage(QRectF(x, row, button.width() * 3, button.height() * 3), button);
        x += button.width() * 3 + 10;
    }
    for (const char* name : {"reelmoor-32.png", "reelmoor-128.png"}) {
        const QImage icon(folder + '/' + name);
        ok = ok && !icon.isNull();
        p.drawImage(x, row, icon);
        x += icon.width() + 10;
    }
    for (const char* name : {"arrow_right.svg", "arrow_left.svg"}) {
        QSvgRenderer arrow(folder + '/' + name);
        ok = ok && arrow.isValid();
        arrow.render(&p, QRectF(x, row, 32, 32));
        arrow.render(&p, QRectF(x, row + 40, 96, 96));
        x += 106;
    }
    p.end();
    return sheet.save(pngPath) && ok;
}

}  // namespace pictures
