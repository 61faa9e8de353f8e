// SPDX-License-Identifier: GPL-2.0-or-later
#include "winners/start_over.h"

#include "winners/winners_file.h"

#include <QMessageBox>

StartOverAsker& startOverAsker()
{
    static StartOverAsker ask = [](QWidget* parent, const QString& caption, const QString& text) {
        QMessageBox box(QMessageBox::NoIcon, caption, text, QMessageBox::Yes | QMessageBox::No, parent);
        return box.exec() == QMessageBox::Yes;
    };
    return ask;
}

void startTableOfWinnersOver(QWidget* parent)
{
    const bool yes = startOverAsker()(
        parent, QStringLiteral("reelmoor"),
        QStringLiteral("This will permenately delete table of winners and start a new table of winners"));
    // An absent file is nothing to delete, and nothing to tell.
    if (yes) winners::remove();
}
