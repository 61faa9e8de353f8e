// SPDX-License-Identifier: GPL-2.0-or-later
// Enhanced Metafiles behind the common picture type.
#include "platform/picture/emf_source.h"

namespace pictures {

namespace {

class EmfSource final : public Picture::Source {
public:
    explicit EmfSource(EmfPicture emf) : emf_(std::move(emf)) {}
    QSizeF exactSize() const override { return emf_.exactSize(); }
    void paint(QPainter& painter, const QRectF& target) const override { emf_.paint(painter, target); }
    QString title() const override { return emf_.title(); }

private:
    EmfPicture emf_;
};

}  // namespace

Picture fromEmf(EmfPicture emf)
{
    return Picture(std::make_shared<const EmfSource>(std::move(emf)));
}

Loaded loadEmf(const QString& path)
{
    auto emf = EmfPicture::load(path);
    if (!emf)
        return {std::nullopt, QStringLiteral("the file is no enhanced metafile the game can draw")};
    return {fromEmf(std::move(*emf)), {}};
}

}  // namespace pictures
