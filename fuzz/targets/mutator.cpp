#include "mutator.h"

namespace {

constexpr int mostChanges = 4;
constexpr int mostCopied = 200; ///< bytes

QByteArray unescaped(const QByteArray& text)
{
    QByteArray bytes;
    for (int at = 0; at < text.size(); ++at) {
        if (text.at(at) == '\\' && text.mid(at + 1, 1) == "x") {
            bytes.append(QByteArray::fromHex(text.mid(at + 2, 2)));
            at += 3;
        } else if (text.at(at) == '\\') {
            bytes.append(text.mid(++at, 1));
        } else {
            bytes.append(text.at(at));
        }
    }
    return bytes;
}

} // namespace

QList<QByteArray> dictionaryTokens(const QByteArray& dictionary)
{
    QList<QByteArray> tokens;
    const QList<QByteArray> lines = dictionary.split('\n');
    for (const QByteArray& line : lines) {
        const int first = line.indexOf('"');
        const int last = line.lastIndexOf('"');
        if (!line.startsWith('#') && last > first)
            tokens.append(unescaped(line.mid(first + 1, last - first - 1)));
    }
    return tokens;
}

mutator::mutator(unsigned int seed, const QList<QByteArray>& inputs, const QList<QByteArray>& tokens)
    : inputs(inputs)
    , tokens(tokens)
    , random(seed)
{
}

QByteArray mutator::next()
{
    QByteArray input = anyOf(inputs);
    for (int changes = 1 + below(mostChanges); changes > 0; --changes)
        change(&input);
    return input;
}

void mutator::change(QByteArray* input)
{
    const int at = below(input->size() + 1);
    switch (below(10)) {
    case 0:
        input->truncate(at);
        return;
    case 1:
    case 2:
        input->insert(at, anyOf(tokens));
        return;
    case 3:
    case 4:
    case 5:
        return replacePiece(input, ' ', anyOf(tokens));
    case 6:
        return replacePiece(input, '\0', anyOf(anyOf(inputs).split('\0')));
    case 7: {
        const QByteArray other = anyOf(inputs);
        input->insert(at, other.mid(below(other.size() + 1), below(mostCopied)));
        return;
    }
    default:
        changeBytes(input, at);
    }
}

void mutator::changeBytes(QByteArray* input, int at)
{
    const char byte = static_cast<char>(below(256));
    switch (below(5)) {
    case 0:
        input->insert(at, byte);
        return;
    case 1:
        input->replace(at, 1, QByteArray(1, byte));
        return;
    case 2:
        input->remove(at, 1 + below(8));
        return;
    case 3:
        input->append(input->mid(at, below(mostCopied)));
        return;
    default:
        if (at < input->size())
            (*input)[at] = static_cast<char>(input->at(at) ^ (1 << below(8)));
    }
}

void mutator::replacePiece(QByteArray* input, char separator, const QByteArray& by)
{
    QList<QByteArray> pieces = input->split(separator);
    pieces[below(pieces.size())] = by;
    *input = pieces.join(separator);
}
