// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/controls.h"

#include "platform/caption_button.h"
#include "platform/window_helpers.h"

#include <QLabel>
#include <QLineEdit>

QLineEdit* makeTextBox(QWidget* parent, const QString& name, const QString& text, const QRect& place, bool readOnly)
{
    auto* t = new QLineEdit(text, parent);
    t->setObjectName(name);
    t->setGeometry(place);
    t->setFont(win::courierBold(18));
    t->setReadOnly(readOnly);
    if (readOnly)
        t->setFocusPolicy(Qt::ClickFocus);
    QPalette p = t->palette();
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::Text, Qt::black);
    t->setPalette(p);
    return t;
}

CaptionButton* makeButton(QWidget* parent, const QString& name, const QString& caption, double points)
{
    auto* b = new CaptionButton(caption, parent);
    b->setObjectName(name);
    b->setFont(win::courierBold(points));
    b->setAccessibleName(caption);
    return b;
}

QLabel* makeLabel(QWidget* parent, const QString& text, const QRect& place, Qt::Alignment align)
{
    auto* l = new QLabel(text, parent);
    l->setGeometry(place);
    l->setAlignment(align | Qt::AlignTop);
    l->setFont(win::courierBold(15.75));
    return l;
}
