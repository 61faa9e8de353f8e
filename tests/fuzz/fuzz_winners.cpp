// SPDX-License-Identifier: GPL-2.0-or-later
// The table of winners on arbitrary bytes: decoding and encoding lose no
// byte, the file reader sees what the decoder sees, and a save keeps the
// table and everything the old file held beyond it.
#include "tests/fuzz/fuzz_check.h"
#include "winners/winners_file.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

// A scratch folder for "name.dat" for as long as the program runs, on a
// memory file system when there is one (a save syncs the file to disk).
class Scratch {
public:
    Scratch()
    {
        folder_ = (access("/dev/shm", W_OK) == 0 ? "/dev/shm" : "/tmp") + std::string("/reelmoor-fuzz-XXXXXX");
        FUZZ_CHECK(mkdtemp(folder_.data()) != nullptr);
        file_ = folder_ + "/" + winners::kFileName;
    }
    ~Scratch()
    {
        std::remove(file_.c_str());
        std::remove((file_ + ".tmp").c_str());
        rmdir(folder_.c_str());
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    const std::string& file() const { return file_; }

private:
    std::string folder_;
    std::string file_;
};

const std::string& scratchFile()
{
    static const Scratch scratch;
    return scratch.file();
}

void writeFile(const std::string& path, std::span<const unsigned char> bytes)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    FUZZ_CHECK(fd >= 0);
    FUZZ_CHECK(::write(fd, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()));
    ::close(fd);
}

std::vector<unsigned char> readFile(const std::string& path)
{
    std::vector<unsigned char> bytes;
    const int fd = ::open(path.c_str(), O_RDONLY);
    FUZZ_CHECK(fd >= 0);
    unsigned char buffer[4096];
    ssize_t n;
    while ((n = ::read(fd, buffer, sizeof buffer)) > 0)
        bytes.insert(bytes.end(), buffer, buffer + n);
    ::close(fd);
    return bytes;
}

// The 240 bytes a file stands for: its own, then blanks and zero credits.
std::array<unsigned char, winners::kTableBytes> padded(std::span<const unsigned char> bytes)
{
    std::array<unsigned char, winners::kTableBytes> all;
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = i < bytes.size() ? bytes[i] : (i % winners::kRecordBytes < winners::kNameBytes ? ' ' : 0);
    return all;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::span<const unsigned char> bytes(data, size);

    // Bytes to table and back.
    const winners::Table table = winners::decode(bytes);
    FUZZ_CHECK(winners::encode(table) == padded(bytes));

    for (const winners::winner& w : table) {
        // Every name byte survives being shown as text and typed back.
        FUZZ_CHECK(winners::nameFromText(winners::nameText(w)) == w.name);
        FUZZ_CHECK(winners::rowText(w).size() > winners::kNameBytes + 2);
        const Currency bank = Currency::fromWhole(w.credits);
        FUZZ_CHECK(winners::creditsFromBank(bank) == w.credits);
        FUZZ_CHECK(!winners::beats(bank, w.credits));
    }
    // Any text typed as a name gives 20 bytes.
    const std::string text(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 100));
    FUZZ_CHECK(winners::nameFromUtf8(text).size() == winners::kNameBytes);

    // The same bytes as "name.dat".
    const std::string& path = scratchFile();
    writeFile(path, bytes);
    const winners::Opened opened = winners::open(path);
    FUZZ_CHECK(opened.fromFile == (size > 0));
    FUZZ_CHECK(opened.table == (size > 0 ? table : winners::defaultTable()));
    FUZZ_CHECK(opened.recordCount * winners::kRecordBytes == double(size));

    // Saving the table changes no byte of the file, except to fill a short
    // one up to the whole table.
    FUZZ_CHECK(winners::save(opened.table, path).ok);
    const std::vector<unsigned char> saved = readFile(path);
    const auto expected = winners::encode(opened.table);
    FUZZ_CHECK(saved.size() == std::max(size, winners::kTableBytes));
    FUZZ_CHECK(std::equal(expected.begin(), expected.end(), saved.begin()));
    FUZZ_CHECK(std::equal(bytes.begin() + std::min(size, winners::kTableBytes), bytes.end(),
                          saved.begin() + winners::kTableBytes));
    FUZZ_CHECK(winners::open(path).table == opened.table);
    return 0;
}
