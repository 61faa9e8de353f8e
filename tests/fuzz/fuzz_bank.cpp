// SPDX-License-Identifier: GPL-2.0-or-later
// The bank's text on arbitrary bytes, and money written as text and read
// back: whatever the total-credits box holds reads as a whole amount that
// the game writes back unchanged, and every amount's text is exact.
#include "rules/currency.h"
#include "rules/settlement.h"
#include "tests/fuzz/fuzz_check.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace {

__extension__ typedef __int128 Wide;

// The exact value (times 10,000) of a "-123.4567" text, or nullopt when the
// text is not of that form: optional minus, digits, then a point and one to
// four digits, the last not a zero.
std::optional<Wide> exactValue(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (negative)
        text.remove_prefix(1);
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    const std::string_view fraction = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    if (whole.empty() || whole.size() > 15 || (whole.size() > 1 && whole[0] == '0'))
        return std::nullopt;
    if (point != std::string_view::npos && (fraction.empty() || fraction.size() > 4 || fraction.back() == '0'))
        return std::nullopt;
    Wide value = 0;
    for (char c : whole) {
        if (c < '0' || c > '9')
            return std::nullopt;
        value = value * 10 + (c - '0');
    }
    Wide unit = Currency::kScale;
    value *= unit;
    for (char c : fraction) {
        if (c < '0' || c > '9')
            return std::nullopt;
        unit /= 10;
        value += (c - '0') * unit;
    }
    return negative ? -value : value;
}

// A whole amount no larger than the currency's largest whole amount.
bool wholeInRange(Currency c)
{
    return c.raw() % Currency::kScale == 0 && c.compareWhole(Currency::kMaxWhole) <= 0
        && c.compareWhole(-Currency::kMaxWhole) >= 0;
}

void checkText(Currency c)
{
    const std::string text = c.text();
    FUZZ_CHECK(text.size() <= Currency::kTextCapacity);
    const std::optional<Wide> value = exactValue(text);
    FUZZ_CHECK(value && *value == c.raw());
    FUZZ_CHECK(c.printed() == (c.raw() < 0 ? "" : " ") + text + " ");

    // Read as a bank: the amount to whole credits, within the range.
    const std::int64_t whole = std::clamp(c.roundWhole(), -Currency::kMaxWhole, Currency::kMaxWhole);
    FUZZ_CHECK(readBank(text) == Currency::fromWhole(whole));
    FUZZ_CHECK(readBank(c.printed()) == readBank(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);

    // Any text in the box reads as whole credits that survive being written
    // back, however it is surrounded by blanks.
    const Currency bank = readBank(text);
    FUZZ_CHECK(wholeInRange(bank));
    FUZZ_CHECK(readBank(bank.text()) == bank);
    const std::string padded = " \t" + std::string(text) + "\n ";
    FUZZ_CHECK(readBank(padded) == bank);
    // A minus sign in front of a plain number turns the whole amount round.
    if (!text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.'))
        FUZZ_CHECK(readBank("-" + std::string(text)) == Currency() - bank);

    // The first eight bytes as an amount and as a double.
    if (size >= sizeof(std::int64_t)) {
        std::int64_t raw;
        std::memcpy(&raw, data, sizeof raw);
        checkText(Currency::fromRaw(raw));
        double value;
        std::memcpy(&value, data, sizeof value);
        const Currency fromDouble = Currency::fromDouble(value);
        checkText(fromDouble);
        if (std::isnan(value))
            FUZZ_CHECK(fromDouble == Currency());
        else if (std::fabs(value) < 1e14)
            FUZZ_CHECK(std::fabs(fromDouble.toDouble() - value) <= 0.00005 + std::fabs(value) * 1e-15);
    }
    return 0;
}
