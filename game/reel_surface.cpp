// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/reel_surface.h"

#include "game/reel_cells_accessible.h"
#include "presentation/segment_pool.h"

#include <QAccessible>
#include <QPaintEvent>
#include <QPainter>

#include <cmath>

ReelSurface::ReelSurface(const SegmentPool& segments, QWidget* parent)
    : QWidget(parent), segments_(segments)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    static const bool cellsAccessible = (QAccessible::installFactory(reelCellsAccessible), true);
    (void)cellsAccessible;
}

void ReelSurface::placeCell(int i, const QRectF& rect)
{
    cellRect_[static_cast<std::size_t>(i)] = rect;
    update(rect.toAlignedRect());
}

void ReelSurface::setCellPicture(int i, const QImage* picture)
{
    const auto at = static_cast<std::size_t>(i);
    if (cellPicture_[at] == picture)
        return;
    cellPicture_[at] = picture;
    update(cellRect_[at].toAlignedRect());
}

void ReelSurface::setCellName(int i, const QString& name)
{
    QString& now = cellName_[static_cast<std::size_t>(i)];
    if (now == name)
        return;
    now = name;
    if (QAccessible::isActive()) {
        QAccessibleEvent changed(this, QAccessible::NameChanged);
        changed.setChild(i);
        QAccessible::updateAccessibility(&changed);
    }
}

void ReelSurface::placeCells(double size)
{
    const double sw = width();
    for (int i = 0; i < kCells; ++i) {
        const CellPlace at = placeOf(i);
        placeCell(i, QRectF((at.column + 2) * sw / 8 - size / 2, at.row * size + 5, size, size));
    }
    bandBottom_ = kRows * size + 10;
    stripBottom_ = kRows * size + 5;
    update();
}

GridCentres ReelSurface::gridCentres() const
{
    GridCentres centres;
    const float w = static_cast<float>(width());
    for (int c = 0; c < kColumns; ++c)
        centres.x[c] = w * static_cast<float>(c + 2) / 8.0f;
    for (int r = 0; r < kRows; ++r)
        centres.y[r] = static_cast<float>(cellRect(cellAt(r, 0)).top()) + static_cast<float>(cellRect(0).height()) / 2.0f;
    return centres;
}

void ReelSurface::segmentsChanged() { update(0, 0, width(), static_cast<int>(bandBottom_) + 60); }

void ReelSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), palette().color(QPalette::Window));
    if (bandBottom_ > 0) {
        painter.fillRect(QRectF(0, 0, width(), bandBottom_), Qt::black);
        for (int k = 0; k < kColumns; ++k) {
            const QRectF& c = cellRect_[static_cast<std::size_t>(k)];
            painter.fillRect(QRectF(QPointF(c.left() - 5, c.top() - 5), QPointF(c.right() + 5, stripBottom_)),
                             Qt::white);
        }
    }
    // A cell's picture has the cell's size in device pixels (give or take the
    // half pixel a fractional scale leaves); its corner is snapped to the
    // nearest device pixel so the picture is copied, never resampled.
    const double dpr = devicePixelRatioF();
    for (std::size_t i = 0; i < cellRect_.size(); ++i) {
        const QImage* picture = cellPicture_[i];
        if (!picture || !cellRect_[i].intersects(event->rect()))
            continue;
        const QRectF& c = cellRect_[i];
        const QPointF corner(std::round(c.left() * dpr) / dpr, std::round(c.top() * dpr) / dpr);
        const bool madeForThisScreen = picture->devicePixelRatio() == dpr &&
                                       std::abs(picture->width() - c.width() * dpr) <= 1 &&
                                       std::abs(picture->height() - c.height() * dpr) <= 1;
        if (madeForThisScreen) {
            painter.drawImage(corner, *picture);
        } else {
            painter.setRenderHint(QPainter::SmoothPixmapTransform);
            painter.drawImage(QRectF(corner, c.size()), *picture);
            painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        }
    }
    segments_.paint(painter);
}
