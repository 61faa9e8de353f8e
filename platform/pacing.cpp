// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/pacing.h"

Pacing& pacing()
{
    static Pacing p;
    return p;
}
