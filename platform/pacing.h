// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// How fast the game's animations run. The reels move one twelfth of a cell
// per pass; the strobe waits one tick of the clock twice per flash. Both are
// driven by timers of the event loop, so nothing spins the processor.
struct Pacing {
    int passMs = 16;           // one pass per frame of a 60 Hz screen
    int tickMs = 16;           // one step of a 1/64-second time-of-day clock
    double timerScale = 1.0;   // multiplies the reels' 2 to 6 second stopping times
};
