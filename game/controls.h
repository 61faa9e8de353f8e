// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The main window's kinds of control, in the design's bold Courier: text
// boxes, captioned buttons and labels.
#include <QString>
#include <Qt>

class CaptionButton;
class QLabel;
class QLineEdit;
class QRect;
class QWidget;

// A box of the design; the read-only ones only show results and take no Tab stop.
QLineEdit* makeTextBox(QWidget* parent, const QString& name, const QString& text, const QRect& place, bool readOnly);
CaptionButton* makeButton(QWidget* parent, const QString& name, const QString& caption, double points);
QLabel* makeLabel(QWidget* parent, const QString& text, const QRect& place, Qt::Alignment align);
