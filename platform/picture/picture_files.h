// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Which files the game reads its pictures from, and the one rule for finding
// a symbol's picture in a folder.
#include "platform/picture/picture.h"

#include <QByteArray>
#include <QDir>
#include <QString>

#include <optional>
#include <vector>

namespace pictures {

// The most symbols a folder can hold: numbers 0 to 49.
inline constexpr int kMaxSymbols = 50;

struct Loaded {
    std::optional<Picture> picture;
    QString why;  // when there is no picture: why, in a few words
};

// The bytes of a picture file, or why there are none: missing, unreadable,
// empty, or larger than any picture the game takes.
struct FileBytes {
    QByteArray bytes;
    QString why;
};
FileBytes readPictureFile(const QString& path);

// Loads one picture file, its format told by its suffix (.emf, .svg, .png).
Loaded loadPicture(const QString& path);

// Symbol n of a folder: "n.emf", or where that does not load "n.svg", or
// else "n.png". `why` names the files tried when none loads.
Loaded loadSymbol(const QDir& folder, int n);

// The symbols of a folder, from 0 up to the first number with no picture
// that loads, at most kMaxSymbols.
std::vector<Picture> loadSymbols(const QDir& folder);

}  // namespace pictures
