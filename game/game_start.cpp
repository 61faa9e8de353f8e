// SPDX-License-Identifier: GPL-2.0-or-later
#include "game/game_start.h"

#include "game/main_window.h"
#include "screens/splash.h"

#include <QDir>

bool startGame(SplashScreen* splash, const Services& services, MainWindow** mainWindow)
{
    splash->showWithVersion();
    auto* window = new MainWindow(services);
    splash->raise();  // the main window opens behind the splash
    if (!window->startupError().isEmpty()) {
        const QString file = window->startupError();
        delete window;
        splash->hide();
        services.message(nullptr, MessageKind::Note, QStringLiteral("reelmoor"),
                         QStringLiteral("reelmoor cannot start: the picture file \"%1\" is missing or cannot be read "
                                        "in the folder %2.")
                             .arg(file, QDir::currentPath()));
        window = nullptr;
    }
    if (mainWindow)
        *mainWindow = window;
    return window != nullptr;
}
