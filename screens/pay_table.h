// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The pay table: page 1 shows every symbol in play with what two to five of
// it in a row pay, page 2 what three to five of one figure in any colours
// pay, at the credits per line now bet. Opened modally from the menu.
#include "platform/picture/picture.h"
#include "rules/currency.h"

#include <QColor>
#include <QDialog>
#include <QImage>
#include <QPointF>
#include <QString>

#include <vector>

class QPushButton;

class PayTable : public QDialog {
    Q_OBJECT
public:
    // symbols: the pictures of the symbols in play, which outlive the dialog.
    PayTable(const std::vector<Picture>& symbols, Currency creditsPerLine, QWidget* parent = nullptr);

    // One print statement as it stands on the window: where its text starts
    // (top left, pixels), the text, the font's pixel size and the colour.
    struct Printed {
        QPointF at;
        QString text;
        int pixelSize;
        QColor colour;
    };
    const std::vector<Printed>& printed() const { return printed_; }

    QPushButton* pageButton() const { return pageButton_; }
    // The picture boxes, index = symbol number.
    const std::vector<QWidget*>& pictureBoxes() const { return pictureBoxes_; }
    // The off-screen drawing the window shows, brought up to date.
    const QImage& canvas();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void placePictures();
    void showPageOne();
    void showPageTwo();
    QString amount(double valuePerCredit) const;

    // Printing on the window: the text position moves along as items are
    // printed and to the start of the next line when a print ends.
    void print(const QString& text, bool stayOnLine = false);
    void cls();
    void setFontPoints(qreal points);

    const std::vector<Picture>& symbols_;
    Currency creditsPerLine_;
    QPushButton* pageButton_ = nullptr;
    std::vector<QWidget*> pictureBoxes_;
    bool activated_ = false;

    QPointF position_;
    int pixelSize_ = 9;
    QColor colour_ = Qt::black;
    std::vector<Printed> printed_;
    QImage canvas_;
    bool canvasStale_ = true;
};
