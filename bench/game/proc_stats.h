// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What the benchmarks read about their own process from /proc and getrusage.
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>
#include <sstream>
#include <string>

namespace proc {
// CPU seconds (user + system) used by this process so far.
inline double cpuSeconds()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// Resident memory in MB.
inline double residentMB()
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line))
        if (line.rfind("VmRSS:", 0) == 0)
            return std::stod(line.substr(6)) / 1024.0;
    return 0;
}

// Seconds since this process started.
inline double sinceProcessStart()
{
    std::ifstream stat("/proc/self/stat");
    std::string content((std::istreambuf_iterator<char>(stat)), {});
    std::istringstream fields(content.substr(content.rfind(')') + 2));
    std::string f;
    for (int i = 3; i <= 22; ++i)
        fields >> f;  // field 22: start time in clock ticks after boot
    const double start = std::stod(f) / double(sysconf(_SC_CLK_TCK));
    std::ifstream up("/proc/uptime");
    double uptime = 0;
    up >> uptime;
    return uptime - start;
}
}
