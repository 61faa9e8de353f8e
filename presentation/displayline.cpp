// Shows one pay line that won, with the segments drawlines last placed.
#include "game/reel_surface.h"
#include "game/slot_machine.h"

void slot_machine::displayline(int k)
{
    const SegmentRange range = segmentsOfLine(k);
    for (int i = range.first; i <= range.last; ++i)
        Linem(i).visible = true;
    surface->segmentsChanged();
}
