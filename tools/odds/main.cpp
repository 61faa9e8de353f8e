// SPDX-License-Identifier: GPL-2.0-or-later
// reelmoor-odds: what the pay schedule gives back, exactly and by random
// spins, from the game's own rules code.
#include "arguments.h"

#include <cstdio>
#include <exception>
#include <string_view>
#include <vector>

namespace {

const char kUsage[] =
    "usage: reelmoor-odds line [S1 S2 S3 S4 S5]\n"
    "         value of one line reading and its marked cells (\"20.8333 11100\");\n"
    "         without symbols, reads five symbols per line from stdin\n"
    "       reelmoor-odds table [--symbols N | --folder DIR] [--seed S] [--threads T]\n"
    "         every bet: exact return, line hit rate and expected payout; the chance\n"
    "         that a spin pays and its standard deviation per credit bet, exact where\n"
    "         no two played readings share a cell, else estimated; the jackpot chance,\n"
    "         exact for up to 3 symbols or where only lines of five identical symbols\n"
    "         reach it, else estimated. Estimates show the half-width of their 99%\n"
    "         interval relative to the figure, e.g. \"1 in 742103 (±2.1 %)\"; the\n"
    "         jackpot's is at most 5 % (sampling stops at 3 %).\n"
    "         --folder: as many symbols as the game would load from DIR\n"
    "       reelmoor-odds simulate --spins N [--seed S] [--threads T] [--symbols N]\n"
    "                              [--lines L] [--both] [--credits C]\n"
    "         random spins through the settlement, with 99% intervals\n";

}  // namespace

int main(int argc, char** argv)
{
    try {
        std::vector<std::string_view> args(argv + 1, argv + argc);
        if (args.empty())
            usageError("no command given (line, table or simulate; --help shows how)");
        if (args[0] == "--help" || args[0] == "-h") {
            std::fputs(kUsage, stdout);
            return 0;
        }
        const std::string_view command = args[0];
        args.erase(args.begin());
        if (command == "line")
            return lineCommand(args);
        if (command == "table")
            return tableCommand(args);
        if (command == "simulate")
            return simulateCommand(args);
        usageError("unknown command \"" + std::string(command) + "\" (line, table or simulate)");
    } catch (const std::exception& e) {
        std::fprintf(stderr, "reelmoor-odds: %s\n", e.what());
        return 1;
    }
}
