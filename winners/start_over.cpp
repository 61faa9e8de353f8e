// SPDX-License-Identifier: GPL-2.0-or-later
#include "winners/start_over.h"

#include "winners/winners_file.h"

void startTableOfWinnersOver(QWidget* parent, const Services& services)
{
    const bool yes = services.message(
        parent, MessageKind::Question, QStringLiteral("reelmoor"),
        QStringLiteral("This will permenately delete table of winners and start a new table of winners"));
    // An absent file is nothing to delete, and nothing to tell.
    if (yes) winners::remove();
}
