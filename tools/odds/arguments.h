// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Command-line helpers of reelmoor-odds: strict numbers and the one way it
// reports a usage error (one line on stderr, exit status 2).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

[[noreturn]] void usageError(const std::string& message);

// A whole decimal number in [low, high]; anything else is a usage error
// naming what.
std::int64_t wholeArgument(std::string_view text, std::int64_t low, std::int64_t high,
                           const std::string& what);

// Options of the form "--name value" and flags "--name".
class Options {
public:
    Options(const std::vector<std::string_view>& args, const std::vector<std::string_view>& valued,
            const std::vector<std::string_view>& flags);
    bool has(std::string_view name) const;
    std::int64_t whole(std::string_view name, std::int64_t fallback, std::int64_t low,
                       std::int64_t high) const;
    std::string_view text(std::string_view name) const;  // empty when not given

private:
    std::vector<std::pair<std::string_view, std::string_view>> given_;
};

int lineCommand(const std::vector<std::string_view>& args);
int tableCommand(const std::vector<std::string_view>& args);
int simulateCommand(const std::vector<std::string_view>& args);

// The symbols the game would play with from the pictures in folder: "0.emf"
// upwards until the first it cannot load, at most 50. A folder without a
// loadable "0.emf" is a usage error.
int symbolsInFolder(std::string_view folder);

// Threads for the random parts: hardware threads, at least one.
int defaultThreads();
