// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The closing screen: the table of the ten best results. A player whose
// credits beat a row types a name there and Enter stores the table; a player
// who beats none sees the table stored as it was 2.5 seconds later. Either
// way the program ends here.
#include "platform/services.h"
#include "rules/currency.h"
#include "winners/winners_file.h"

#include <QPointF>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <array>
#include <vector>

class QLineEdit;

class ClosingScreen : public QWidget {
    Q_OBJECT
public:
    // bank: the player's credits as last settled. The table is written, the
    // player told of a failure and the program ended through services.
    ClosingScreen(Currency bank, Services services, QWidget* parent = nullptr);

    // Read-only views for whoever checks the screen.
    const winners::Table& table() const { return winners_; }
    QLineEdit* row(int k) const { return rows_[static_cast<std::size_t>(k)]; }
    // The player's credits as printed beside the rows, and where (pixels,
    // top left of the text).
    const QString& printedCredits() const { return printed_; }
    const std::vector<QPointF>& printedAt() const { return printedAt_; }
    bool ended() const { return ended_; }

signals:
    void programEnded(bool stored);

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillTable();
    void storeName(int k);

    void printCredits(int k);
    void finish(bool write);

    Currency bank_;
    Services services_;
    winners::Table winners_{};
    std::array<QLineEdit*, winners::kRecords> rows_{};
    QTimer countdown_;
    bool activated_ = false;
    bool ended_ = false;
    QString printed_;
    std::vector<QPointF> printedAt_;
};
