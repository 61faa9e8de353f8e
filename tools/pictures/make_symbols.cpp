// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/pictures/artwork.h"
#include "tools/pictures/symbol_figures.h"

namespace pictures {

bool makeSymbols(const QString& folder)
{
    bool ok = true;
    for (int s = 0; s < kFigures * kColours; ++s) {
        const QString path = folder + '/' + QString::number(s) + ".emf";
        EmfWriter emf(path.toStdString(), int(kBox), int(kBox), symbolName(s));
        drawFigure(emf, s / kColours, symbolColours(s % kColours));
        ok = emf.finish() && ok;
    }
    return ok;
}

}  // namespace pictures
