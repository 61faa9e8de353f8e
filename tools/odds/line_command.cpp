// SPDX-License-Identifier: GPL-2.0-or-later
// reelmoor-odds line: one reading valued, or a stream of them from stdin.
#include "arguments.h"

#include "tools/odds/odds.h"
#include "rules/pay.h"

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

namespace {

constexpr int kHighestSymbol = kMaxSymbols - 1;

// "<value> <marks>": marks holds 1 for each cell in reading order that is in
// a paying run, else 0.
std::size_t writeResult(const LineReading& r, char* out)
{
    std::size_t n = r.value.writeText(out);
    out[n++] = ' ';
    for (int i = 0; i < 5; ++i)
        out[n++] = (r.marked & (1u << i)) ? '1' : '0';
    out[n++] = '\n';
    return n;
}

class Output {
public:
    ~Output() { flush(); }
    char* room(std::size_t need)
    {
        if (used_ + need > sizeof buffer_)
            flush();
        return buffer_ + used_;
    }
    void commit(std::size_t n) { used_ += n; }
    void flush()
    {
        if (used_ != 0 && std::fwrite(buffer_, 1, used_, stdout) != used_)
            usageError("cannot write the results");
        used_ = 0;
    }

private:
    char buffer_[1 << 16];
    std::size_t used_ = 0;
};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// One line of text: blank, or five symbols. Returns false for blank lines.
bool parseLine(const char* p, const char* end, std::uint64_t lineNumber, int (&s)[5])
{
    int count = 0;
    for (;;) {
        while (p != end && isBlank(*p))
            ++p;
        if (p == end)
            break;
        if (*p < '0' || *p > '9' || count == 5)
            usageError("stdin line " + std::to_string(lineNumber)
                       + ": expected five symbol numbers 0.." + std::to_string(kHighestSymbol));
        int value = 0;
        while (p != end && *p >= '0' && *p <= '9') {
            value = value * 10 + (*p++ - '0');
            if (value > kHighestSymbol)
                usageError("stdin line " + std::to_string(lineNumber) + ": symbol above "
                           + std::to_string(kHighestSymbol));
        }
        if (p != end && !isBlank(*p))
            usageError("stdin line " + std::to_string(lineNumber) + ": not a symbol number");
        s[count++] = value;
    }
    if (count == 0)
        return false;
    if (count != 5)
        usageError("stdin line " + std::to_string(lineNumber) + ": expected five symbols, got "
                   + std::to_string(count));
    return true;
}

int fromStdin()
{
    Output out;
    std::vector<char> buffer(1 << 20);
    std::size_t filled = 0;
    std::uint64_t lineNumber = 0;
    bool atEnd = false;
    while (!atEnd) {
        const std::size_t got = std::fread(buffer.data() + filled, 1, buffer.size() - filled, stdin);
        filled += got;
        atEnd = got == 0;
        if (atEnd && std::ferror(stdin))
            usageError("cannot read stdin");
        const char* p = buffer.data();
        const char* end = p + filled;
        for (;;) {
            const char* newline = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
            if (!newline) {
                if (!atEnd)
                    break;
                if (p == end)
                    break;
                newline = end;  // last line without a line break
            }
            ++lineNumber;
            int s[5];
            if (parseLine(p, newline, lineNumber, s)) {
                char* o = out.room(Currency::kTextCapacity + 8);
                out.commit(writeResult(readLine(s[0], s[1], s[2], s[3], s[4]), o));
            }
            p = newline == end ? end : newline + 1;
        }
        const std::size_t rest = static_cast<std::size_t>(end - p);
        if (rest == buffer.size())
            usageError("stdin line " + std::to_string(lineNumber + 1) + " is too long");
        std::memmove(buffer.data(), p, rest);
        filled = rest;
    }
    return 0;
}

}  // namespace

int lineCommand(const std::vector<std::string_view>& args)
{
    if (args.empty())
        return fromStdin();
    if (args.size() != 5)
        usageError("line takes five symbols, or none to read them from stdin");
    int s[5];
    for (int i = 0; i < 5; ++i)
        s[i] = static_cast<int>(wholeArgument(args[static_cast<std::size_t>(i)], 0, kHighestSymbol,
                                              "symbol " + std::to_string(i + 1)));
    char text[Currency::kTextCapacity + 8];
    const std::size_t n = writeResult(readLine(s[0], s[1], s[2], s[3], s[4]), text);
    std::fwrite(text, 1, n, stdout);
    return 0;
}
