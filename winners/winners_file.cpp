// SPDX-License-Identifier: GPL-2.0-or-later
#include "winners/winners_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace winners {

namespace {

// Characters of the bytes 0x80..0x9F; the five bytes the page leaves
// undefined stand for the C1 control of the same number, so that any byte
// read from a file is written back unchanged.
constexpr char32_t kHighControls[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char32_t kReplacement = 0xFFFD;

std::array<unsigned char, kNameBytes> blankName()
{
    std::array<unsigned char, kNameBytes> name;
    name.fill(' ');
    return name;
}

// UTF-8 to characters; each malformed sequence (its longest valid-looking
// start) becomes one replacement character.
std::u32string decodeUtf8(std::string_view text)
{
    std::u32string out;
    std::size_t i = 0;
    while (i < text.size()) {
        const auto b0 = static_cast<unsigned char>(text[i]);
        if (b0 < 0x80) {
            out.push_back(b0);
            ++i;
            continue;
        }
        std::size_t length = 0;
        char32_t ch = 0;
        unsigned char lo = 0x80, hi = 0xBF;  // allowed range of the second byte
        if (b0 >= 0xC2 && b0 <= 0xDF) { length = 2; ch = b0 & 0x1F; }
        else if (b0 >= 0xE0 && b0 <= 0xEF) {
            length = 3; ch = b0 & 0x0F;
            if (b0 == 0xE0) lo = 0xA0;
            if (b0 == 0xED) hi = 0x9F;
        } else if (b0 >= 0xF0 && b0 <= 0xF4) {
            length = 4; ch = b0 & 0x07;
            if (b0 == 0xF0) lo = 0x90;
            if (b0 == 0xF4) hi = 0x8F;
        }
        if (length == 0) {
            out.push_back(kReplacement);
            ++i;
            continue;
        }
        std::size_t used = 1;
        bool good = true;
        for (; used < length; ++used) {
            if (i + used >= text.size()) { good = false; break; }
            const auto b = static_cast<unsigned char>(text[i + used]);
            const unsigned char min = used == 1 ? lo : 0x80;
            const unsigned char max = used == 1 ? hi : 0xBF;
            if (b < min || b > max) { good = false; break; }
            ch = (ch << 6) | (b & 0x3F);
        }
        out.push_back(good ? ch : kReplacement);
        i += used;
    }
    return out;
}

void putLittleEndian(unsigned char* at, std::int32_t value)
{
    const auto u = static_cast<std::uint32_t>(value);
    for (int b = 0; b < 4; ++b) at[b] = static_cast<unsigned char>(u >> (8 * b));
}

std::int32_t getLittleEndian(const unsigned char* at)
{
    std::uint32_t u = 0;
    for (int b = 0; b < 4; ++b) u |= static_cast<std::uint32_t>(at[b]) << (8 * b);
    return static_cast<std::int32_t>(u);
}

std::string describe(const char* what, const std::string& path, int error)
{
    return std::string(what) + " " + path + ": " + std::strerror(error);
}

// Reads up to size bytes from offset; the count read, or -1 on an error.
long readAt(int fd, unsigned char* data, std::size_t size, off_t offset)
{
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = ::pread(fd, data + done, size - done, offset + static_cast<off_t>(done));
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return -1;
        if (n == 0) break;
        done += static_cast<std::size_t>(n);
    }
    return static_cast<long>(done);
}

bool writeAll(int fd, const std::vector<unsigned char>& bytes, const Writer& writer)
{
    std::size_t done = 0;
    while (done < bytes.size()) {
        errno = 0;
        const long n = writer(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) {
            if (n == 0 || errno == 0) errno = EIO;
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    return true;
}

std::string directoryOf(const std::string& path)
{
    const auto slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

}  // namespace

Table defaultTable()
{
    Table table;
    for (int i = 0; i < kRecords; ++i) {
        table[i].name = nameFromUtf8("ANONYMOUS");
        table[i].credits = 50000 - (50000 * i) / 10;
    }
    return table;
}

char32_t decodeCp1252(unsigned char byte)
{
    if (byte >= 0x80 && byte <= 0x9F) return kHighControls[byte - 0x80];
    return byte;
}

unsigned char encodeCp1252(char32_t ch)
{
    if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<unsigned char>(ch);
    for (int i = 0; i < 32; ++i)
        if (kHighControls[i] == ch) return static_cast<unsigned char>(0x80 + i);
    return '?';
}

std::array<unsigned char, kNameBytes> nameFromText(std::u32string_view text)
{
    auto name = blankName();
    const std::size_t n = std::min(text.size(), kNameBytes);
    for (std::size_t i = 0; i < n; ++i) name[i] = encodeCp1252(text[i]);
    return name;
}

std::array<unsigned char, kNameBytes> nameFromUtf8(std::string_view text)
{
    return nameFromText(decodeUtf8(text));
}

std::u32string nameText(const winner& w)
{
    std::u32string text;
    for (unsigned char b : w.name) text.push_back(decodeCp1252(b));
    return text;
}

std::u32string rowText(const winner& w)
{
    std::u32string text = nameText(w);
    text += U"  ";
    for (char c : std::to_string(w.credits)) text.push_back(static_cast<unsigned char>(c));
    return text;
}

std::int32_t creditsFromBank(Currency bank)
{
    constexpr std::int64_t lo = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t hi = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(bank.roundWhole(), lo, hi));
}

bool beats(Currency bank, std::int32_t credits)
{
    return bank.compareWhole(credits) == std::strong_ordering::greater;
}

Table decode(std::span<const unsigned char> bytes)
{
    // What a short file lacks reads as a blank record: blanks, then 0.
    std::array<unsigned char, kTableBytes> all;
    for (std::size_t i = 0; i < kTableBytes; ++i)
        all[i] = (i % kRecordBytes) < kNameBytes ? ' ' : 0;
    std::copy_n(bytes.begin(), std::min(bytes.size(), kTableBytes), all.begin());

    Table table;
    for (int r = 0; r < kRecords; ++r) {
        const unsigned char* at = all.data() + r * kRecordBytes;
        std::copy_n(at, kNameBytes, table[r].name.begin());
        table[r].credits = getLittleEndian(at + kNameBytes);
    }
    return table;
}

std::array<unsigned char, kTableBytes> encode(const Table& table)
{
    std::array<unsigned char, kTableBytes> bytes{};
    for (int r = 0; r < kRecords; ++r) {
        unsigned char* at = bytes.data() + r * kRecordBytes;
        std::copy(table[r].name.begin(), table[r].name.end(), at);
        putLittleEndian(at + kNameBytes, table[r].credits);
    }
    return bytes;
}

Opened open(const std::string& path)
{
    Opened result{defaultTable(), 0.0, false};
    int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    if (fd < 0) fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return result;

    struct stat st {};
    if (::fstat(fd, &st) == 0 && S_ISREG(st.st_mode) && st.st_size > 0) {
        result.recordCount = static_cast<double>(st.st_size) / kRecordBytes;
        std::array<unsigned char, kTableBytes> bytes{};
        const long n = readAt(fd, bytes.data(), bytes.size(), 0);
        result.table = decode(std::span(bytes.data(), n > 0 ? static_cast<std::size_t>(n) : 0));
        result.fromFile = true;
    }
    ::close(fd);
    return result;
}

long systemWrite(int fd, const unsigned char* data, std::size_t size)
{
    return static_cast<long>(::write(fd, data, size));
}

Saved save(const Table& table, const std::string& path, const Writer& writer)
{
    // Replace the file a link points to, not the link.
    std::string target = path;
    struct stat link {};
    if (::lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode)) {
        if (char* real = ::realpath(path.c_str(), nullptr)) {
            target = real;
            std::free(real);
        }
    }

    const auto table_bytes = encode(table);
    std::vector<unsigned char> bytes(table_bytes.begin(), table_bytes.end());

    // What the old file holds beyond the table goes into the new one.
    struct stat old {};
    bool had_old = false;
    const int in = ::open(target.c_str(), O_RDONLY | O_CLOEXEC);
    if (in < 0 && errno != ENOENT) return {false, describe("cannot read", target, errno)};
    if (in >= 0) {
        if (::fstat(in, &old) == 0 && S_ISREG(old.st_mode)) {
            had_old = true;
            if (old.st_size > static_cast<off_t>(kTableBytes)) {
                const std::size_t tail = static_cast<std::size_t>(old.st_size) - kTableBytes;
                bytes.resize(kTableBytes + tail);
                const long n = readAt(in, bytes.data() + kTableBytes, tail, kTableBytes);
                if (n < 0) {
                    const int error = errno;
                    ::close(in);
                    return {false, describe("cannot read", target, error)};
                }
                bytes.resize(kTableBytes + static_cast<std::size_t>(n));
            }
        }
        ::close(in);
    }

    // A table the player made read-only is left as it is.
    if (had_old && ::access(target.c_str(), W_OK) != 0)
        return {false, describe("cannot write", target, errno)};

    const std::string temp = target + ".tmp";
    const int out = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (out < 0) return {false, describe("cannot create", temp, errno)};
    if (had_old) {
        // Keep the old file's owner and permissions; failing that is harmless.
        [[maybe_unused]] const int owned = ::fchown(out, old.st_uid, old.st_gid);
        ::fchmod(out, old.st_mode & 07777);
    }

    auto fail = [&](const char* what, const std::string& name) {
        const int error = errno;
        if (out >= 0) ::close(out);
        ::unlink(temp.c_str());
        return Saved{false, describe(what, name, error)};
    };
    if (!writeAll(out, bytes, writer)) return fail("cannot write", temp);
    if (::fsync(out) != 0) return fail("cannot write", temp);
    if (::close(out) != 0) {
        const int error = errno;
        ::unlink(temp.c_str());
        return {false, describe("cannot write", temp, error)};
    }
    if (::rename(temp.c_str(), target.c_str()) != 0) {
        const int error = errno;
        ::unlink(temp.c_str());
        return {false, describe("cannot replace", target, error)};
    }
    // Make the rename itself durable; a file system without it is no error.
    const int dir = ::open(directoryOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (dir >= 0) {
        ::fsync(dir);
        ::close(dir);
    }
    return {true, {}};
}

bool remove(const std::string& path)
{
    return ::unlink(path.c_str()) == 0 || errno == ENOENT;
}

}  // namespace winners
