// SPDX-License-Identifier: GPL-2.0-or-later
#include "arguments.h"

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <thread>

void usageError(const std::string& message)
{
    std::fprintf(stderr, "reelmoor-odds: %s\n", message.c_str());
    std::exit(2);
}

std::int64_t wholeArgument(std::string_view text, std::int64_t low, std::int64_t high,
                           const std::string& what)
{
    std::int64_t value = 0;
    const char* end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    if (text.empty() || error != std::errc() || stop != end || value < low || value > high)
        usageError(what + " must be a whole number from " + std::to_string(low) + " to "
                   + std::to_string(high) + ", not \"" + std::string(text) + "\"");
    return value;
}

Options::Options(const std::vector<std::string_view>& args, const std::vector<std::string_view>& valued,
                 const std::vector<std::string_view>& flags)
{
    auto among = [](std::string_view name, const std::vector<std::string_view>& names) {
        for (auto n : names)
            if (n == name)
                return true;
        return false;
    };
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view name = args[i];
        if (has(name))
            usageError("option " + std::string(name) + " given twice");
        if (among(name, flags)) {
            given_.emplace_back(name, std::string_view());
        } else if (among(name, valued)) {
            if (i + 1 >= args.size())
                usageError("option " + std::string(name) + " needs a value");
            given_.emplace_back(name, args[++i]);
        } else {
            usageError("unknown option \"" + std::string(name) + "\"");
        }
    }
}

bool Options::has(std::string_view name) const
{
    for (const auto& [n, v] : given_)
        if (n == name)
            return true;
    return false;
}

std::int64_t Options::whole(std::string_view name, std::int64_t fallback, std::int64_t low,
                            std::int64_t high) const
{
    for (const auto& [n, v] : given_)
        if (n == name)
            return wholeArgument(v, low, high, std::string(name));
    return fallback;
}

std::string_view Options::text(std::string_view name) const
{
    for (const auto& [n, v] : given_)
        if (n == name)
            return v;
    return {};
}

int defaultThreads()
{
    const unsigned n = std::thread::hardware_concurrency();
    return n == 0 ? 1 : static_cast<int>(n);
}
