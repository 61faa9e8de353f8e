// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The menu command "start table of winners over": after a Yes it deletes the
// winners file, so the next closing screen starts from the default table.
#include <QString>

#include <functional>

class QWidget;

void startTableOfWinnersOver(QWidget* parent);

// Puts the question to the player and returns true for Yes. The default is a
// modal Yes/No message box; tests replace it.
using StartOverAsker = std::function<bool(QWidget* parent, const QString& caption, const QString& text)>;
StartOverAsker& startOverAsker();
