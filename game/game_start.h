// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The start of the game: the splash screen on screen, the main window made
// behind it. False when the game cannot start (a picture it needs is
// missing); the player has then been told which.
#include "platform/services.h"

class MainWindow;
class SplashScreen;

bool startGame(SplashScreen* splash, const Services& services, MainWindow** mainWindow = nullptr);
