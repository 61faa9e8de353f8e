// SPDX-License-Identifier: GPL-2.0-or-later
#pragma once
// Small helpers for looking at "name.dat" byte by byte.
#include <QByteArray>
#include <QFile>

#include <cstdint>

inline QByteArray readFile(const QString& path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(bytes) == bytes.size();
}

// One record as the file holds it: 20 bytes of name, little-endian credits.
inline QByteArray record(const QByteArray& name, std::int32_t credits)
{
    QByteArray r = name.leftJustified(20, ' ', true);
    for (int b = 0; b < 4; ++b) r.append(char((std::uint32_t(credits) >> (8 * b)) & 0xFF));
    return r;
}

inline QByteArray defaultFile()
{
    QByteArray bytes;
    for (int i = 0; i < 10; ++i) bytes += record("ANONYMOUS", 50000 - 5000 * i);
    return bytes;
}

#include <QDir>
#include <QTemporaryDir>

// A fresh empty working directory for as long as it lives.
class ScratchDir {
public:
    ScratchDir() { QDir::setCurrent(dir_.path()); }
    ~ScratchDir() { QDir::setCurrent(home_); }
    ScratchDir(const ScratchDir&) = delete;
    ScratchDir& operator=(const ScratchDir&) = delete;

private:
    QString home_ = QDir::currentPath();
    QTemporaryDir dir_;
};
