#include "wirenumbers.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace {

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

// Reads digits from first on, at most as many as T surely holds. Returns the place behind them, or null when there are
// none or too many.
template <typename T> const char* plainDigits(const char* first, const char* last, T* value)
{
    constexpr std::ptrdiff_t most = std::numeric_limits<T>::digits10;
    T sum = 0;
    const char* at = first;
    for (; at != last && isDigit(*at); ++at) {
        if (at - first == most)
            return nullptr;
        sum = sum * 10 + static_cast<T>(*at - '0');
    }
    *value = sum;
    return at == first ? nullptr : at;
}

// The same with a minus sign in front, if there is one.
const char* plainInt(const char* first, const char* last, int* value)
{
    const bool negative = first != last && *first == '-';
    const char* behind = plainDigits(negative ? first + 1 : first, last, value);
    if (negative)
        *value = -*value;
    return behind;
}

// Digits with a dot between them. Both the digits without the dot and the power of ten are exact as doubles, so their
// quotient is rounded once and is the double nearest to the text, which is what the toolkit yields too.
bool plainReal(const char* first, const char* last, qreal* value)
{
    constexpr double powers[] = {1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    int whole = 0;
    const char* dot = plainDigits(first, last, &whole);
    if (dot == last) {
        *value = whole;
        return true;
    }
    if (!dot || *dot != '.' || last - first > 15)
        return false;
    int fraction = 0;
    if (plainDigits(dot + 1, last, &fraction) != last)
        return false;
    const double power = powers[last - dot - 1];
    *value = (whole * power + fraction) / power;
    return true;
}

// Writes so many thousandths without zeros at the end.
char* putThousandths(char* out, int thousandths)
{
    out = wire::putNumber(out, thousandths / 1000);
    int rest = thousandths % 1000;
    if (rest != 0)
        *out++ = '.';
    for (; rest != 0; rest = rest % 100 * 10)
        *out++ = static_cast<char>('0' + rest / 100);
    return out;
}

} // namespace

namespace wire {

QString toText(std::string_view part) { return QString::fromLatin1(part.data(), static_cast<int>(part.size())); }

unsigned int toUInt(std::string_view part)
{
    unsigned int value = 0;
    const char* last = part.data() + part.size();
    return plainDigits(part.data(), last, &value) == last ? value : toText(part).toUInt();
}

int toInt(std::string_view part)
{
    int value = 0;
    const char* last = part.data() + part.size();
    return plainInt(part.data(), last, &value) == last ? value : toText(part).toInt();
}

uint64 toUInt64(std::string_view part)
{
    uint64 value = 0;
    const char* last = part.data() + part.size();
    return plainDigits(part.data(), last, &value) == last ? value : toText(part).toULongLong();
}

qreal toReal(std::string_view part)
{
    qreal value = 0;
    return plainReal(part.data(), part.data() + part.size(), &value) ? value : toText(part).toDouble();
}

anyID toClient(std::string_view part) { return static_cast<anyID>(toUInt(part)); }

QPoint toPoint(std::string_view part)
{
    int x = 0;
    int y = 0;
    const char* last = part.data() + part.size();
    const char* behindX = plainInt(part.data(), last, &x);
    if (behindX && behindX != last && *behindX == '|' && plainInt(behindX + 1, last, &y) == last)
        return {x, y};
    const std::size_t bar = part.find('|');
    if (bar == std::string_view::npos)
        return {toInt(part), 0};
    const std::string_view behind = part.substr(bar + 1);
    return {toInt(part.substr(0, bar)), toInt(behind.substr(0, behind.find('|')))};
}

const char* scanNumber(const char* text, uint64* value)
{
    char* behind = nullptr;
    const uint64 number = std::strtoull(text, &behind, 10);
    if (behind == text)
        return nullptr;
    *value = number;
    return behind;
}

anyID scanClient(const char* text) { return static_cast<anyID>(std::strtoll(text, nullptr, 10)); }

// Not std::to_chars: its table of digits is a unique symbol, and a library with one of those is never unmapped.
char* putNumber(char* out, uint64 value)
{
    char digits[longestNumber];
    char* const last = digits + longestNumber;
    char* first = last;
    do {
        *--first = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    return std::copy(first, last, out);
}

char* putNumber(char* out, int value)
{
    const uint64 magnitude = value < 0 ? uint64(0) - static_cast<uint64>(value) : static_cast<uint64>(value);
    if (value < 0)
        *out++ = '-';
    return putNumber(out, magnitude);
}

char* putReal(char* out, qreal value)
{
    // The widths that the window offers take this way. The double nearest to so many thousandths below a million has
    // them as its first six significant digits, since a double holds fifteen.
    const qreal thousandths = value * 1000;
    if (thousandths >= 1 && thousandths < 999999) {
        const int rounded = static_cast<int>(std::lround(thousandths));
        if (rounded / 1000.0 == value)
            return putThousandths(out, rounded);
    }
    const QByteArray text = QString::fromLatin1("%1").arg(value, 0, 'g', -1).toLatin1();
    return std::copy(text.begin(), text.end(), out);
}

} // namespace wire
