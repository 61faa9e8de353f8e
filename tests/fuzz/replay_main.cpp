// SPDX-License-Identifier: GPL-2.0-or-later
// A fuzz target without libFuzzer: runs the target once on every file named
// on the command line, or on every file inside a named folder. CTest replays
// the committed corpora this way in the ordinary and the sanitized builds.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) __attribute__((weak));

namespace fs = std::filesystem;

int main(int argc, char** argv)
{
    if (LLVMFuzzerInitialize)
        LLVMFuzzerInitialize(&argc, &argv);

    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        const fs::path named(argv[i]);
        if (fs::is_directory(named)) {
            for (const auto& entry : fs::recursive_directory_iterator(named))
                if (entry.is_regular_file())
                    files.push_back(entry.path());
        } else {
            files.push_back(named);
        }
    }
    std::sort(files.begin(), files.end());
    if (files.empty()) {
        std::fprintf(stderr, "no input files\n");
        return 1;
    }

    for (const fs::path& file : files) {
        std::ifstream in(file, std::ios::binary);
        if (!in) {
            std::fprintf(stderr, "cannot read %s\n", file.c_str());
            return 1;
        }
        const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    }
    std::printf("%zu inputs ran\n", files.size());
    return 0;
}
