// SPDX-License-Identifier: GPL-2.0-or-later
// Looks at symbol pictures the way the game draws them:
//   reelmoor-picture-check render IN OUT.png [--size N]
// draws IN (a .emf, .svg or .png file) fitted into N × N pixels (256 unless given), centred on white.
#include "tools/picture_check/render_command.h"

#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    QStringList args = app.arguments().mid(1);
    if (args.isEmpty() || args.front() != QLatin1String("render")) {
        std::fprintf(stderr, "usage: reelmoor-picture-check render IN.emf|IN.svg|IN.png OUT.png [--size N]\n");
        return 2;
    }
    args.removeFirst();
    return picture_check::renderCommand(args);
}
