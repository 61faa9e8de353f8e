#include "presentation/segment_pool.h"

#include <QPainter>
#include <QPen>

void SegmentPool::hide(int first, int last)
{
    for (int i = first; i <= last; ++i)
        segments_[i].visible = false;
}

void SegmentPool::paint(QPainter& painter) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 1; i <= kSize; ++i) {
        const Segment& s = segments_[i];
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
        {0, -1}, {1, 1}, {2, 2}, {3, 3}, {4, 7}, {8, 11}, {12, 15}, {16, 19}, {20, 22}, {23, 25}};
    return (k >= 1 && k <= 9) ? ranges[k] : SegmentRange{0, -1};
}

QColor paletteColor(int index)
{
    static constexpr int rgb[16][3] = {
        {0, 0, 0},     {0, 0, 128},   {0, 128, 0},     {0, 128, 128},
        {128, 0, 0},   {128, 0, 128}, {128, 128, 0},   {192, 192, 192},
        {128, 128, 128}, {0, 0, 255}, {0, 255, 0},     {0, 255, 255},
        {255, 0, 0},   {255, 0, 255}, {255, 255, 0},   {255, 255, 255}};
    const auto& c = rgb[index & 15];
    return QColor(c[0], c[1], c[2]);
}
