// SPDX-License-Identifier: GPL-2.0-or-later
#include "tools/picture_check/refusal.h"

#include <cstdint>

namespace picture_check {

namespace {

constexpr qsizetype kMaxFileBytes = 32 * 1024 * 1024;
constexpr std::uint32_t kHeaderRecord = 1;
constexpr std::uint32_t kSignature = 0x464D4520;  // " EMF"

// The little-endian word at byte offset at; 0 when it does not fit.
std::uint32_t word(const QByteArray& bytes, qsizetype at)
{
    std::uint32_t v = 0;
    if (at < 0 || at + 4 > bytes.size())
        return v;
    for (int i = 3; i >= 0; --i)
        v = (v << 8) | static_cast<unsigned char>(bytes.at(at + i));
    return v;
}

}  // namespace

QString whyRefused(const QByteArray& bytes, bool readable)
{
    if (!readable)
        return QStringLiteral("the file cannot be read");
    if (bytes.size() > kMaxFileBytes)
        return QStringLiteral("the file is larger than 32 MiB");
    if (bytes.size() < 88 || word(bytes, 0) != kHeaderRecord || word(bytes, 40) != kSignature)
        return QStringLiteral("the file is no enhanced metafile");
    const std::uint32_t stated = word(bytes, 48);
    if (stated > std::uint64_t(bytes.size()))
        return QStringLiteral("the file is cut short: its header promises %1 bytes, it holds %2")
            .arg(stated)
            .arg(bytes.size());
    return QStringLiteral("its header is damaged");
}

}  // namespace picture_check
