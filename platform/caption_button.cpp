// SPDX-License-Identifier: GPL-2.0-or-later
#include "platform/caption_button.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

CaptionButton::CaptionButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent)
{
    // Enter clicks the focused button, as space does.
    setAutoDefault(true);
}

void CaptionButton::setPicture(const QIcon& picture, const QSize& logicalSize)
{
    picture_ = picture;
    pictureSize_ = logicalSize;
    update();
}

void CaptionButton::setFace(const QColor& colour)
{
    // The style keeps drawn faces in a cache keyed by the palette, and every
    // new palette is a new key: the colour the face already has makes none.
    if (face() == colour)
        return;
    QPalette p = palette();
    p.setColor(QPalette::Button, colour);
    setPalette(p);
}

QColor CaptionButton::face() const { return palette().color(QPalette::Button); }

void CaptionButton::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    option.icon = QIcon();
    painter.drawControl(QStyle::CE_PushButtonBevel, option);

    QRect area = rect().adjusted(3, 3, -3, -3);
    if (!picture_.isNull()) {
        const QRect pic(QPoint(area.x() + (area.width() - pictureSize_.width()) / 2, area.y()), pictureSize_);
        picture_.paint(&painter, pic, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
        area.setTop(pic.bottom() + 1);
    }
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    painter.setFont(font());
    painter.drawText(area, Qt::AlignCenter | Qt::TextWordWrap, text());
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(4, 4, -4, -4);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}
