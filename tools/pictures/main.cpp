// SPDX-License-Identifier: GPL-2.0-or-later
// Writes the game's artwork into a folder (the repository's assets/):
//   reelmoor-pictures <folder>
// or writes only the symbols, as drawings or photos a player might bring:
//   reelmoor-pictures --symbols-as svg|png <folder>
// or draws what is there onto one sheet with the game's decoder:
//   reelmoor-pictures --preview <folder> <sheet.png>
// or writes the small pictures that pin down how pens stroke:
//   reelmoor-pictures --pen-samples <folder>
#include "tools/pictures/artwork.h"
#include "tools/pictures/preview.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = app.arguments();

    if (args.size() == 4 && args[1] == "--preview")
        return pictures::writePreview(args[2], args[3]) ? 0 : 1;
    if (args.size() == 4 && args[1] == "--symbols-as") {
        if (QDir().mkpath(args[3]) && pictures::makeSymbolsAs(args[3], args[2]))
            return 0;
        std::fprintf(stderr, "could not write the symbols as %s into %s\n", qPrintable(args[2]), qPrintable(args[3]));
        return 1;
    }
    if (args.size() == 3 && args[1] == "--pen-samples")
        return pictures::makePenSamples(args[2]) ? 0 : 1;
    if (args.size() != 2) {
        std::fprintf(stderr, "usage: reelmoor-pictures <folder> | --symbols-as svg|png <folder>"
                             " | --preview <folder> <sheet.png> | --pen-samples <folder>\n");
        return 2;
    }
    const QString folder = args[1];
    if (!QDir().mkpath(folder)) {
        std::fprintf(stderr, "cannot create %s\n", qPrintable(folder));
        return 1;
    }
    struct Maker {
        const char* what;
        bool (*make)(const QString&);
    };
    const Maker makers[] = {
        {"symbols", pictures::makeSymbols},         {"splash", pictures::makeSplash},
        {"line buttons", pictures::makeLineButtons}, {"icons", pictures::makeIcons},
        {"arrows", pictures::makeArrows},
    };
    int failures = 0;
    for (const Maker& m : makers) {
        if (!m.make(folder)) {
            std::fprintf(stderr, "could not write the %s\n", m.what);
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
