// SPDX-License-Identifier: GPL-2.0-or-later
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

    Segment& operator[](int index) { return segments_[static_cast<std::size_t>(index)]; }
    const Segment& operator[](int index) const { return segments_[static_cast<std::size_t>(index)]; }

    void hideAll();
    void paint(QPainter& painter) const;

private:
    std::array<Segment, kSize> segments_{};
};

// The segments of pay line k (1..9): first and last index in the pool.
struct SegmentRange {
    int first;
    int last;
};
SegmentRange segmentsOfLine(int k);

// Pay line k is drawn in colour k of the classic 16-colour palette.
QColor lineColour(int index);

// Where the pay lines run over the grid: the centres of the five columns and
// of the three rows. Arrays that know their length, so a debug build stops
// at a reach past the grid.
struct GridCentres {
    std::array<float, 5> x{};
    std::array<float, 3> y{};
};

// Places the segments of every pay line played when lines are played, all
// visible, and hides the rest.
void layOutPayLines(SegmentPool& pool, int lines, const GridCentres& centres);
// Shows the segments of pay line k as last laid out.
void showPayLine(SegmentPool& pool, int k);
