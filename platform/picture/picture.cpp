// SPDX-License-Identifier: GPL-2.0-or-later
// Drawing a picture of any format.
#include "platform/picture/picture.h"

#include <algorithm>

void Picture::paint(QPainter& painter, const QRectF& target) const
{
    if (target.isEmpty())
        return;
    source_->paint(painter, target);
}

void Picture::paintInCell(QPainter& painter, QSizeF cell) const
{
    if (!source_->scalesIntoCell()) {
        paintNatural(painter);
        return;
    }
    const QSizeF own = exactSize();
    const double scale = std::min(cell.width() / own.width(), cell.height() / own.height());
    const QSizeF size = own * scale;
    paint(painter, QRectF(QPointF((cell.width() - size.width()) / 2, (cell.height() - size.height()) / 2), size));
}
