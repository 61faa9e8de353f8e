#include "game/slot.h"

#include "platform/emf/emf_picture.h"

namespace slot {
Currency creditsperline;
int maxsymbol = -1;
Currency bank;
std::vector<EmfPicture> symbolPictures;
}
