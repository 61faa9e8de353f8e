// SPDX-License-Identifier: GPL-2.0-or-later
// Drawing a picture of any format.
#include "platform/picture/picture.h"

void Picture::paint(QPainter& painter, const QRectF& target) const
{
    if (target.isEmpty())
        return;
    source_->paint(painter, target);
}
