// SPDX-License-Identifier: GPL-2.0-or-later
#include "presentation/segment_pool.h"

#include <QPainter>
#include <QPen>

void SegmentPool::hideAll()
{
    for (Segment& s : segments_)
        s.visible = false;
}

void SegmentPool::paint(QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const Segment& s : segments_) {
        if (!s.visible)
            continue;
        painter.setPen(QPen(s.color, s.width, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(s.p1, s.p2);
    }
    painter.restore();
}

SegmentRange segmentsOfLine(int k)
{
    static constexpr SegmentRange ranges[10] = {
        {0, -1}, {0, 0}, {1, 1}, {2, 2}, {3, 6}, {7, 10}, {11, 14}, {15, 18}, {19, 21}, {22, 24}};
    return (k >= 1 && k <= 9) ? ranges[k] : SegmentRange{0, -1};
}

QColor lineColour(int index)
{
    static constexpr int rgb[16][3] = {
        {0, 0, 0},     {0, 0, 128},   {0, 128, 0},     {0, 128, 128},
        {128, 0, 0},   {128, 0, 128}, {128, 128, 0},   {192, 192, 192},
        {128, 128, 128}, {0, 0, 255}, {0, 255, 0},     {0, 255, 255},
        {255, 0, 0},   {255, 0, 255}, {255, 255, 0},   {255, 255, 255}};
    const auto& c = rgb[index & 15];
    return QColor(c[0], c[1], c[2]);
}
