// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Writing small metafiles for the decoder tests, and measuring what the
// decoder drew.
#include "platform/emf/emf_picture.h"
#include "tools/pictures/emf_writer.h"

#include <QByteArray>
#include <QImage>
#include <QRect>
#include <QTemporaryDir>

#include <functional>
#include <optional>

using Drawing = std::function<void(EmfWriter&)>;

inline U_POINTL P(int x, int y) { return point32_set(x, y); }

// Writes a picture of width x height pixels at 96 dpi with `draw`, returns its bytes.
QByteArray writeEmf(int width, int height, const Drawing& draw);
// The same with a header of our choosing.
QByteArray writeEmf(U_RECTL bounds, U_RECTL frame, U_SIZEL devicePixels, U_SIZEL millimetres,
                    const Drawing& draw);

// A picture drawn on white at its natural size from the top-left corner of
// a width x height image of the given pixel ratio.
QImage renderNatural(const EmfPicture& picture, int width, int height, double ratio = 1);
// The picture's frame stretched onto target.
QImage renderInto(const EmfPicture& picture, QSize image, const QRectF& target);

struct Ink {
    double area = 0;  // pixels' darkness summed: the painted area for black ink
    QRect box;        // pixels at least half dark
};
Ink inkOf(const QImage& image);
double darknessAt(const QImage& image, int x, int y);  // 0 white ... 1 black

// Selects a black brush and the null pen, so only the fill is measured.
void blackFill(EmfWriter& emf);
