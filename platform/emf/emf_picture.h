// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// A Windows Enhanced Metafile picture, checked record by record when it is
// loaded and drawn with QPainter by our own record interpreter.
#include <QByteArray>
#include <QRectF>
#include <QSize>
#include <QString>

#include <memory>
#include <optional>

class QPainter;

class EmfPicture {
public:
    // nullopt when the file is missing, is no EMF, or its structure is bad.
    static std::optional<EmfPicture> load(const QString& path);
    static std::optional<EmfPicture> fromBytes(const QByteArray& bytes);

    // The header's frame (0.01 mm) at 96 dpi, rounded: 1931 -> 73 px.
    QSize naturalSize() const;
    // The same, unrounded: the frame's own aspect, for fitting it anywhere.
    QSizeF exactSize() const;
    // The picture's name from the header's description, if it gives one.
    QString title() const;

    // Draws the picture with its frame mapped onto target (logical units of
    // the painter; drawing stays vector, so a HiDPI painter gets crisp edges).
    void paint(QPainter& painter, const QRectF& target) const;

    // Draws the picture at its natural size from the painter's origin.
    void paintNatural(QPainter& painter) const { paint(painter, QRectF(QPointF(0, 0), naturalSize())); }

    EmfPicture(const EmfPicture&);
    EmfPicture& operator=(const EmfPicture&);
    EmfPicture(EmfPicture&&) noexcept;
    EmfPicture& operator=(EmfPicture&&) noexcept;
    ~EmfPicture();

private:
    struct Data;
    explicit EmfPicture(std::shared_ptr<const Data> d);
    std::shared_ptr<const Data> d_;
};
