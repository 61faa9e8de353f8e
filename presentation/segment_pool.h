#pragma once
// The pool of straight line segments the pay lines are made of. Segments lie
// over the grid's cells; one with a higher index lies in front of one with a
// lower index. The window paints the visible ones after the cells.
#include <QColor>
#include <QPointF>

#include <array>

class QPainter;

struct Segment {
    bool visible = false;
    QPointF p1;
    QPointF p2;
    QColor color = Qt::black;
    int width = 10;
};

class SegmentPool {
public:
    static constexpr int kSize = 100;

    Segment& operator()(int index) { return segments_[index]; }          // 1..100
    const Segment& operator()(int index) const { return segments_[index]; }

    void hide(int first, int last);
    void paint(QPainter& painter) const;

private:
    std::array<Segment, kSize + 1> segments_{};  // entry 0 unused
};

// The segments of pay line k (1..9): first and last index in the pool.
struct SegmentRange {
    int first;
    int last;
};
SegmentRange segmentsOfLine(int k);

// Pay line k is drawn in colour k of the classic 16-colour palette.
QColor paletteColor(int index);
