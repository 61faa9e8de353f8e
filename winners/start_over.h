// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The menu command "start table of winners over": after a Yes it deletes the
// winners file, so the next closing screen starts from the default table.
#include "platform/services.h"

class QWidget;

// The question is put to the player through services.
void startTableOfWinnersOver(QWidget* parent, const Services& services);
