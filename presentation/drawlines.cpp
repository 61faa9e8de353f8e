// Shows every pay line in play over the grid, each in its own colour.
#include "game/reel_surface.h"
#include "game/slot_machine.h"

namespace {
struct End {
    int column;  // 1..5
    double dx;
    int row;     // 1..3
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
    {1, {1, -50, 2, 0}, {5, 50, 2, 0}},
    {2, {1, -50, 1, 0}, {5, 50, 1, 0}},
    {3, {1, -50, 3, 0}, {5, 50, 3, 0}},
    {4, {1, -40, 1, -40}, {2, 0, 2, 0}},
    {4, {2, 0, 2, 0}, {3, 0, 1, 0}},
    {4, {3, 0, 1, 0}, {4, 0, 2, 0}},
    {4, {4, 0, 2, 0}, {5, 40, 1, -40}},
    {5, {1, -40, 3, 40}, {2, 0, 2, 0}},
    {5, {2, 0, 2, 0}, {3, 0, 3, 0}},
    {5, {3, 0, 3, 0}, {4, 0, 2, 0}},
    {5, {4, 0, 2, 0}, {5, 40, 3, 40}},
    {6, {1, -50, 2, -50}, {2, 0, 3, 0}},
    {6, {2, 0, 3, 0}, {3, 0, 2, 0}},
    {6, {3, 0, 2, 0}, {4, 0, 3, 0}},
    {6, {4, 0, 3, 0}, {5, 50, 2, -50}},
    {7, {1, -50, 2, 50}, {2, 0, 1, 0}},
    {7, {2, 0, 1, 0}, {3, 0, 2, 0}},
    {7, {3, 0, 2, 0}, {4, 0, 1, 0}},
    {7, {4, 0, 1, 0}, {5, 50, 2, 50}},
    {8, {1, -50, 1, -20}, {2, 0, 1, -20}},
    {8, {2, 0, 1, -20}, {4, 0, 3, 20}},
    {8, {4, 0, 3, 20}, {5, 50, 3, 20}},
    {9, {1, -50, 3, 20}, {2, 0, 3, 20}},
    {9, {2, 0, 3, 20}, {4, 0, 1, -20}},
    {9, {4, 0, 1, -20}, {5, 50, 1, -20}},
};

// A line is in play from this many lines played upwards.
int threshold(int line) { return line == 1 ? 1 : line <= 3 ? 3 : line <= 5 ? 5 : line <= 7 ? 7 : 9; }
}

void slot_machine::drawlines(int n)
{
    // Column centres divide the inner width into eighths; row centres are the
    // middles of the first cell of each row. Worked out in single precision.
    const float w = static_cast<float>(surface->width());
    float x[6];
    float y[4];
    for (int c = 1; c <= 5; ++c)
        x[c] = w * static_cast<float>(c + 1) / 8.0f;
    for (int r = 1; r <= 3; ++r) {
        const QRectF first = surface->cellRect(5 * (r - 1) + 1);
        y[r] = static_cast<float>(first.top()) + static_cast<float>(surface->cellRect(1).height()) / 2.0f;
    }

    for (int i = 1; i <= 99; ++i) {
        Linem(i).visible = false;
        Linem(i).width = 6;
    }
    for (int s = 0; s < 25; ++s) {
        const SegmentPlan& plan = kPlan[s];
        if (n < threshold(plan.line))
            continue;
        Segment& seg = Linem(s + 1);
        seg.visible = true;
        seg.p1 = QPointF(x[plan.from.column] + plan.from.dx, y[plan.from.row] + plan.from.dy);
        seg.p2 = QPointF(x[plan.to.column] + plan.to.dx, y[plan.to.row] + plan.to.dy);
        seg.color = paletteColor(plan.line);
    }
    surface->segmentsChanged();
}
