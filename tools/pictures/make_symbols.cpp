// SPDX-License-Identifier: GPL-2.0-or-later
// Our fifty symbols, as metafiles for the game's own folder, or as drawings
// and photos of the kind a player brings, for trying a player's folder.
#include "tools/pictures/artwork.h"
#include "tools/pictures/symbol_figures.h"

#include "platform/emf/emf_picture.h"

#include <QImage>
#include <QPainter>
#include <QSvgGenerator>
#include <QTemporaryDir>

namespace pictures {

bool makeSymbols(const QString& folder)
{
    bool ok = true;
    for (int s = 0; s < kFigures * kColours; ++s) {
        const QString path = folder + '/' + QString::number(s) + ".emf";
        EmfWriter emf(path.toStdString(), int(kBox), int(kBox), symbolName(s));
        drawFigure(emf, s / kColours, symbolColours(s % kColours));
        ok = emf.finish() && ok;
    }
    return ok;
}

bool makeSymbolsAs(const QString& folder, const QString& format)
{
    QTemporaryDir metafiles;
    if ((format != "svg" && format != "png") || !metafiles.isValid() || !makeSymbols(metafiles.path()))
        return false;
    bool ok = true;
    for (int s = 0; s < kFigures * kColours; ++s) {
        const QString name = QString::number(s);
        const auto emf = EmfPicture::load(metafiles.filePath(name + ".emf"));
        if (!emf)
            return false;
        if (format == "svg") {
            QSvgGenerator svg;
            svg.setFileName(folder + '/' + name + ".svg");
            svg.setResolution(96);  // the game's pixels, so the drawing is 73 px wide
            svg.setSize(QSize(int(kBox), int(kBox)));
            svg.setViewBox(QRectF(0, 0, kBox, kBox));
            svg.setTitle(QStringLiteral("Symbol %1").arg(s));
            QPainter painter(&svg);
            emf->paintNatural(painter);
            ok = painter.end() && ok;
            continue;
        }
        // Painted at three times the cell on a clear ground, as a paint
        // program would save it; the game scales it down into the cell.
        QImage image(int(3 * kBox), int(3 * kBox), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        emf->paint(painter, QRectF(image.rect()));
        painter.end();
        ok = image.save(folder + '/' + name + ".png", "PNG") && ok;
    }
    return ok;
}

}  // namespace pictures
