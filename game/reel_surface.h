// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The main window's drawing surface: the light grey face, the black band with
// the five white reel strips, the fifteen cell pictures on them and, in front,
// the pay-line segments. Cells sit at fractional positions, so the surface
// paints them itself instead of placing a widget per cell, and tells a
// screen reader about them as fifteen images of its own.
#include "presentation/segment_pool.h"
#include "rules/grid.h"

#include <QImage>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <array>


class ReelSurface : public QWidget {
public:
    ReelSurface(const SegmentPool& segments, QWidget* parent);

    // The grid of size x size cells: the five columns centred on 2/8 .. 6/8
    // of the width, the rows touching from 5 pixels down; the black band and
    // the white strips behind them.
    void placeCells(double size);
    // The centres of the columns and rows, in single precision, for the pay lines.
    GridCentres gridCentres() const;

    // Cell i (0..14): where it stands and the picture it shows, stretched to it.
    void placeCell(int i, const QRectF& rect);
    QRectF cellRect(int i) const { return cellRect_[static_cast<std::size_t>(i)]; }
    void setCellPicture(int i, const QImage* picture);
    const QImage* cellPicture(int i) const { return cellPicture_[static_cast<std::size_t>(i)]; }
    // What a screen reader says for cell i: the symbol it rests on, or that it rolls.
    void setCellName(int i, const QString& name);
    QString cellName(int i) const { return cellName_[static_cast<std::size_t>(i)]; }

    void segmentsChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const SegmentPool& segments_;
    std::array<QRectF, kCells> cellRect_{};
    std::array<const QImage*, kCells> cellPicture_{};
    std::array<QString, kCells> cellName_{};
    double bandBottom_ = 0;
    double stripBottom_ = 0;
};
