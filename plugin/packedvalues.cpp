#include "packedvalues.h"

#include <QList>

#include <algorithm>
#include <iterator>

namespace {

// How the value of an object begins. A text that begins so is written with a second sign, or told to be a text.
constexpr const char* marks[] = {"@Variant(", "@DateTime("};

// The value of a digit, base or more when it is none.
int digitOf(char byte, int base)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    const char lower = static_cast<char>(byte | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : base;
}

// Reads the escape whose backslash stands before at, appends the letter that it stands for, and returns the place
// behind it. An escape that stands for nothing lets its neighbours join.
int readEscape(const QByteArray& ini, int at, QByteArray* letters)
{
    const char kind = ini.at(at);
    const int base = kind == 'x' ? 16 : 8;
    const int first = kind == 'x' ? at + 1 : at;
    int end = first;
    quint16 code = 0;
    for (; end < ini.size() && digitOf(ini.at(end), base) < base; ++end)
        code = static_cast<quint16>(code * base + digitOf(ini.at(end), base));
    if (end > first) {
        letters->append(code < 256 ? static_cast<char>(code) : '?');
        return end;
    }
    if (QByteArray("abfnrtv\"?'\\").contains(kind))
        letters->append('\\');
    return at + 1;
}

// The letters of the values as the toolkit joins them, without quotes and escapes.
QByteArray joinedLetters(const QByteArray& ini)
{
    QByteArray letters;
    letters.reserve(ini.size());
    for (int at = 0; at < ini.size();) {
        const char byte = ini.at(at++);
        if (byte == '\\' && at < ini.size())
            at = readEscape(ini, at, &letters);
        else if (byte != '"')
            letters.append(byte);
    }
    return letters;
}

bool isKey(const QByteArray& name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), [](char byte) {
        return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
    });
}

// Whether the value is of the toolkit's own writing: quoted as a whole or not at all, one text and no list.
bool isPlainValue(const QByteArray& value)
{
    const bool quoted = value.startsWith('"');
    for (int at = quoted ? 1 : 0; at < value.size(); ++at) {
        const char byte = value.at(at);
        if (byte == '\\' && ++at == value.size())
            return false;
        if (byte == '"')
            return quoted && at + 1 == value.size();
        if (!quoted && (byte == ',' || byte == ';'))
            return false;
    }
    return !quoted;
}

enum class linekind { text, packed, odd };

// What stands in one line of a file in which no quotation and no backslash reaches beyond its line.
linekind kindOf(const QByteArray& line)
{
    if (line.isEmpty() || (line.startsWith('[') && line.indexOf(']') == line.size() - 1 && !line.contains('"')))
        return linekind::text;
    const int equals = line.indexOf('=');
    const QByteArray value = line.mid(equals + 1).trimmed();
    if (equals < 0 || line.contains('\r') || !isKey(line.left(equals)) || !isPlainValue(value))
        return linekind::odd;
    const QByteArray letters = joinedLetters(value);
    const auto begins = [&letters](const char* mark) { return letters.startsWith(mark); };
    return std::any_of(std::begin(marks), std::end(marks), begins) ? linekind::packed : linekind::text;
}

// Whether a mark stands anywhere at all, however the letters are brought together.
bool mayHoldMark(const QByteArray& ini)
{
    QByteArray letters = joinedLetters(ini);
    const auto isSpace = [](char byte) { return byte >= 0 && byte <= ' '; };
    letters.truncate(static_cast<int>(std::remove_if(letters.begin(), letters.end(), isSpace) - letters.begin()));
    return std::any_of(std::begin(marks), std::end(marks),
                       [&letters](const char* mark) { return letters.contains(mark); });
}

} // namespace

bool holdsPackedValues(const QByteArray& ini)
{
    bool packed = false;
    for (const QByteArray& line : ini.split('\n')) {
        const linekind kind = kindOf(line);
        // One line that the toolkit would not write, and nobody knows where it sees the next one begin.
        if (kind == linekind::odd)
            return mayHoldMark(ini);
        packed = packed || kind == linekind::packed;
    }
    return packed;
}
