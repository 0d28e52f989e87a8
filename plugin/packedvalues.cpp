#include "packedvalues.h"

namespace {

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

// A doubled sign stands for itself, and so does all of a text that is told to be one: the toolkit writes it so when it
// begins with the sign and holds a NUL.
bool isText(const QByteArray& letters, int at)
{
    constexpr int told = 8;
    return (at > 0 && letters.at(at - 1) == '@') || (at >= told && letters.mid(at - told, told) == "@String(");
}

bool holds(const QByteArray& letters, const char* mark)
{
    int at = letters.indexOf(mark);
    while (at >= 0 && isText(letters, at))
        at = letters.indexOf(mark, at + 1);
    return at >= 0;
}

} // namespace

bool holdsPackedValues(const QByteArray& ini)
{
    const QByteArray letters = joinedLetters(ini);
    return holds(letters, "@Variant(") || holds(letters, "@DateTime(");
}
