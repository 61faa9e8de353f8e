// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The reel surface as a screen reader finds it: the fifteen cells first, as
// images named by what they show, then the controls placed on the surface.
class QAccessibleInterface;
class QObject;
class QString;

// An accessibility factory for QAccessible::installFactory: the reel
// surface's interface, nullptr for any other object.
QAccessibleInterface* reelCellsAccessible(const QString& className, QObject* object);
