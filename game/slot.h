#pragma once
// The values other windows read while the main window owns them.
#include "rules/currency.h"

#include <vector>

class EmfPicture;

namespace slot {
extern Currency creditsperline;  // credits bet on each line played
extern int maxsymbol;            // highest symbol number in play, -1 when none loaded
extern Currency bank;            // the player's credits as last settled

// The symbol pictures as loaded from their files, index = symbol number
// (0..maxsymbol). Filled by the main window at start-up.
extern std::vector<EmfPicture> symbolPictures;
}
