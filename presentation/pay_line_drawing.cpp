// SPDX-License-Identifier: GPL-2.0-or-later
// Every pay line in play over the grid, each in its own colour.
#include "presentation/segment_pool.h"

namespace {
struct End {
    int column;  // 0..4
    double dx;
    int row;     // 0..2
    double dy;
};
struct SegmentPlan {
    int line;
    End from;
    End to;
};

// Where each of the 25 segments of the nine pay lines runs: from a column
// and row centre plus an offset, to another.
constexpr SegmentPlan kPlan[25] = {
    {1, {0, -50, 1, 0}, {4, 50, 1, 0}},
    {2, {0, -50, 0, 0}, {4, 50, 0, 0}},
    {3, {0, -50, 2, 0}, {4, 50, 2, 0}},
    {4, {0, -40, 0, -40}, {1, 0, 1, 0}},
    {4, {1, 0, 1, 0}, {2, 0, 0, 0}},
    {4, {2, 0, 0, 0}, {3, 0, 1, 0}},
    {4, {3, 0, 1, 0}, {4, 40, 0, -40}},
    {5, {0, -40, 2, 40}, {1, 0, 1, 0}},
    {5, {1, 0, 1, 0}, {2, 0, 2, 0}},
    {5, {2, 0, 2, 0}, {3, 0, 1, 0}},
    {5, {3, 0, 1, 0}, {4, 40, 2, 40}},
    {6, {0, -50, 1, -50}, {1, 0, 2, 0}},
    {6, {1, 0, 2, 0}, {2, 0, 1, 0}},
    {6, {2, 0, 1, 0}, {3, 0, 2, 0}},
    {6, {3, 0, 2, 0}, {4, 50, 1, -50}},
    {7, {0, -50, 1, 50}, {1, 0, 0, 0}},
    {7, {1, 0, 0, 0}, {2, 0, 1, 0}},
    {7, {2, 0, 1, 0}, {3, 0, 0, 0}},
    {7, {3, 0, 0, 0}, {4, 50, 1, 50}},
    {8, {0, -50, 0, -20}, {1, 0, 0, -20}},
    {8, {1, 0, 0, -20}, {3, 0, 2, 20}},
    {8, {3, 0, 2, 20}, {4, 50, 2, 20}},
    {9, {0, -50, 2, 20}, {1, 0, 2, 20}},
    {9, {1, 0, 2, 20}, {3, 0, 0, -20}},
    {9, {3, 0, 0, -20}, {4, 50, 0, -20}},
};

// A line is in play from this many lines played upwards.
int threshold(int line) { return line == 1 ? 1 : line <= 3 ? 3 : line <= 5 ? 5 : line <= 7 ? 7 : 9; }
}

void layOutPayLines(SegmentPool& pool, int lines, const GridCentres& centres)
{
    for (int i = 0; i < SegmentPool::kSize - 1; ++i) {
        pool[i].visible = false;
        pool[i].width = 6;
    }
    for (int s = 0; s < 25; ++s) {
        const SegmentPlan& plan = kPlan[s];
        if (lines < threshold(plan.line))
            continue;
        Segment& seg = pool[s];
        seg.visible = true;
        seg.p1 = QPointF(centres.x[plan.from.column] + plan.from.dx, centres.y[plan.from.row] + plan.from.dy);
        seg.p2 = QPointF(centres.x[plan.to.column] + plan.to.dx, centres.y[plan.to.row] + plan.to.dy);
        seg.color = lineColour(plan.line);
    }
}

void showPayLine(SegmentPool& pool, int k)
{
    const SegmentRange range = segmentsOfLine(k);
    for (int i = range.first; i <= range.last; ++i)
        pool[i].visible = true;
}
