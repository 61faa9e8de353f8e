// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// A push button whose caption wraps at word boundaries to fit the button,
// with an optional picture above the caption — the classic desktop command
// button. Its face takes the palette's Button colour, so a chosen button can
// be shown in yellow.
#include <QIcon>
#include <QPushButton>

class CaptionButton : public QPushButton {
public:
    explicit CaptionButton(const QString& caption, QWidget* parent = nullptr);

    void setPicture(const QIcon& picture, const QSize& logicalSize);
    void setFace(const QColor& colour);
    QColor face() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QIcon picture_;
    QSize pictureSize_;
};
