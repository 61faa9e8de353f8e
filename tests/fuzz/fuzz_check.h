// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// What a fuzz target asserts about its input: a broken promise stops the run
// with a message, so libFuzzer keeps the input as a crash.
#include <cstdio>
#include <cstdlib>

#define FUZZ_CHECK(condition)                                                         \
    do {                                                                              \
        if (!(condition)) {                                                           \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                             \
        }                                                                             \
    } while (false)
