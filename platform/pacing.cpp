#include "platform/pacing.h"

Pacing& pacing()
{
    static Pacing p;
    return p;
}
