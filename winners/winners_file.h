// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// The table of winners and its file "name.dat": ten records of 24 bytes, a
// name of 20 Windows-1252 bytes padded with blanks followed by the credits
// as a little-endian 32-bit signed integer. No header, no count. No Qt here.
#include "rules/currency.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace winners {

inline constexpr int kRecords = 10;
inline constexpr std::size_t kNameBytes = 20;
inline constexpr std::size_t kRecordBytes = 24;
inline constexpr std::size_t kTableBytes = kRecords * kRecordBytes;  // 240
inline constexpr const char* kFileName = "name.dat";

// One row of the table. The name is kept as its 20 bytes on disk, so bytes
// that no typed text could produce survive a read and a write unchanged.
struct winner {
    std::array<unsigned char, kNameBytes> name{};
    std::int32_t credits = 0;
    bool operator==(const winner&) const = default;
};

using Table = std::array<winner, kRecords>;

// "ANONYMOUS" with 50000, 45000, ... 5000.
Table defaultTable();

// ---- names -------------------------------------------------------------

// A name from the text of a row: its first 20 characters, padded with
// blanks; characters that Windows-1252 cannot hold become '?'.
std::array<unsigned char, kNameBytes> nameFromText(std::u32string_view text);
// The same from UTF-8 text; a malformed sequence counts as one '?'.
std::array<unsigned char, kNameBytes> nameFromUtf8(std::string_view text);
// The 20 characters of a name (one per byte).
std::u32string nameText(const winner& w);

// The row as the closing screen shows it: the 20 characters of the name,
// two blanks, the credits ("-" only when negative).
std::u32string rowText(const winner& w);

// One Windows-1252 byte as a character and back ('?' when not in the page).
char32_t decodeCp1252(unsigned char byte);
unsigned char encodeCp1252(char32_t ch);

// ---- credits -----------------------------------------------------------

// The player's credits as stored: to the nearest whole number, halves to
// the even neighbour, held inside the 32-bit range.
std::int32_t creditsFromBank(Currency bank);
// The player takes a row only with strictly more credits than it holds.
bool beats(Currency bank, std::int32_t credits);

// ---- bytes -------------------------------------------------------------

// The table from the bytes of a non-empty file. Only the first 240 bytes
// count; whatever a shorter file lacks reads as blanks and 0 credits.
Table decode(std::span<const unsigned char> bytes);
std::array<unsigned char, kTableBytes> encode(const Table& table);

// ---- the file ----------------------------------------------------------

struct Opened {
    Table table;          // the records, or the default table
    double recordCount;   // file length / 24; only zero matters
    bool fromFile;        // false: the default table stands in
};

// Opens the file for reading and writing, creating it empty when absent,
// and reads the table (the default table for an empty or absent file).
// A file that cannot be opened at all reads as absent.
Opened open(const std::string& path = kFileName);

// The low-level write used by save(); tests replace it to make a save fail
// part-way. Same contract as write(2): bytes written, or -1 with errno set.
using Writer = std::function<long(int fd, const unsigned char* data, std::size_t size)>;
long systemWrite(int fd, const unsigned char* data, std::size_t size);  // write(2) itself

struct Saved {
    bool ok = false;
    std::string error;  // why it failed, for the player
};

// Stores the table. A complete new file (the 240 bytes of the table followed
// by whatever the old file held beyond them) is written beside the old one,
// flushed to disk and then renamed over it, so an interrupted save leaves
// either the old file or the new one, never a torn one.
Saved save(const Table& table, const std::string& path = kFileName, const Writer& writer = systemWrite);

// Deletes the file; an absent file is no error. True when no file is left.
bool remove(const std::string& path = kFileName);

}  // namespace winners
