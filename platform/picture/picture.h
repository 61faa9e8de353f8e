// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// A picture the game draws, whatever format it came in: each format loads
// into its own Picture::Source, and everything that shows a picture (the
// reels, the pay table, the splash, the tools) draws it through this type.
#include <QRectF>
#include <QSize>
#include <QString>

#include <memory>

class QPainter;

class Picture {
public:
    // What one format's loaded picture can do. Implementations are immutable
    // once loaded, so pictures share them freely.
    class Source {
    public:
        virtual ~Source() = default;
        // The picture's own size in 96-dpi pixels, unrounded.
        virtual QSizeF exactSize() const = 0;
        // Draws the whole picture stretched onto target, in the painter's
        // logical units; vector formats stay vector, so HiDPI stays crisp.
        virtual void paint(QPainter& painter, const QRectF& target) const = 0;
        // The picture's own name for itself, if its file gives one.
        virtual QString title() const { return {}; }
        // Whether it is scaled into a symbol's cell rather than drawn at its
        // own size (see paintInCell).
        virtual bool scalesIntoCell() const { return false; }
    };

    explicit Picture(std::shared_ptr<const Source> source) : source_(std::move(source)) {}

    QSizeF exactSize() const { return source_->exactSize(); }
    // The own size rounded to whole pixels: a 73 x 73 px symbol is 73 x 73.
    QSize naturalSize() const { return exactSize().toSize(); }
    void paint(QPainter& painter, const QRectF& target) const;
    // Drawn at its natural size from the painter's origin.
    void paintNatural(QPainter& painter) const { paint(painter, QRectF(QPointF(0, 0), naturalSize())); }
    // Drawn as a symbol into a cell from the painter's origin. A metafile
    // keeps its own size from the top-left corner, as the game's own symbols
    // always have; a drawing or photo from any other tool is scaled to fit
    // the cell, aspect kept and centred, since few tools draw at 73 px.
    void paintInCell(QPainter& painter, QSizeF cell) const;
    QString title() const { return source_->title(); }

private:
    std::shared_ptr<const Source> source_;
};
