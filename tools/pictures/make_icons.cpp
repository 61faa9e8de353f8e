// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/artwork.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

namespace pictures {

namespace {

// A yellow crown with a cyan middle on a small red and magenta stem, on
// black, in the sixteen-colour palette's pure colours.
const char* const kCrownSvg = R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">
  <rect width="32" height="32" fill="#000000"/>
  <path d="M4 22 L2.5 7 L10 14 L16 3.5 L22 14 L29.5 7 L28 22 Z" fill="#ffff00"/>
  <rect x="4" y="21" width="24" height="4" fill="#ffff00"/>
  <path d="M16 10 L19.5 15.5 L16 21 L12.5 15.5 Z" fill="#00ffff"/>
  <circle cx="2.8" cy="7" r="1.8" fill="#ffff00"/>
  <circle cx="16" cy="3.6" r="1.8" fill="#ffff00"/>
  <circle cx="29.2" cy="7" r="1.8" fill="#ffff00"/>
  <rect x="13" y="25" width="3" height="5" fill="#ff0000"/>
  <rect x="16" y="25" width="3" height="5" fill="#ff00ff"/>
</svg>
)";

// An arrow on a yellow square; the left one is the right one mirrored.
QByteArray arrowSvg(bool right)
{
    const char* const mirror = right ? "" : R"svg( transform="matrix(-1 0 0 1 32 0)")svg";
    return QByteArray(R"(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">
  <rect width="32" height="32" fill="#ffff00"/>
  <path)") + mirror + R"( d="M4 12.5 H17 V6 L28.5 16 L17 26 V19.5 H4 Z" fill="#000000" stroke="#000000" stroke-width="1" stroke-linejoin="round"/>
</svg>
)";
}

bool write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(text) == text.size();
}

}  // namespace

bool makeIcons(const QString& folder)
{
    const QByteArray svg(kCrownSvg);
    bool ok = write(folder + "/reelmoor.svg", svg);
    QSvgRenderer renderer(svg);
    ok = ok && renderer.isValid();
    for (int size : {32, 48, 64, 128, 256}) {
        QImage image(size, size, QImage::Format_ARGB32);
        image.fill(Qt::black);
        QPainter p(&image);
        renderer.render(&p);
        p.end();
        ok = image.save(folder + QString("/reelmoor-%1.png").arg(size), "PNG") && ok;
    }
    return ok;
}

bool makeArrows(const QString& folder)
{
    const bool right = write(folder + "/arrow_right.svg", arrowSvg(true));
    const bool left = write(folder + "/arrow_left.svg", arrowSvg(false));
    return right && left;
}

}  // namespace pictures
