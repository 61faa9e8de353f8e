// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The game's artwork, each kind written into a folder by its own maker.
#include <QString>

namespace pictures {

// 0.emf ... 49.emf: symbol s is figure s / 5 in colour s % 5, 73 x 73 px,
// and says so in its description ("red circle").
bool makeSymbols(const QString& folder);
// The same symbols as 0.svg ... 49.svg or 0.png ... 49.png (format "svg" or
// "png"), for a folder like a player's own; never our assets.
bool makeSymbolsAs(const QString& folder, const QString& format);
// splash.emf: the splash window's background, 452 x 423 px, no text.
bool makeSplash(const QString& folder);
// 1.jpg, 3.jpg, 5.jpg, 7.jpg, 9.jpg: that many pay lines over a small grid.
bool makeLineButtons(const QString& folder);
// reelmoor.svg and reelmoor-32.png ... reelmoor-256.png: the window's crown.
bool makeIcons(const QString& folder);
// arrow_right.svg and arrow_left.svg: the win-direction arrows.
bool makeArrows(const QString& folder);
// pen-*.emf: one stroking behaviour each (dashes, ends, joins, mixes...).
bool makePenSamples(const QString& folder);

}  // namespace pictures
