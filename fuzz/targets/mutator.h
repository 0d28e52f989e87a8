#pragma once

#include <QByteArray>
#include <QList>

#include <random>

/// Changes inputs at a few places by a seeded generator, so that a test tries the same inputs on every machine: bytes,
/// parts between blanks, records between NULs, tokens of a dictionary, pieces of other inputs.
class mutator {
public:
    /// Both lists are not empty.
    mutator(unsigned int seed, const QList<QByteArray>& inputs, const QList<QByteArray>& tokens);

    /// The next input: one of the inputs, changed.
    QByteArray next();

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }
    const QByteArray& anyOf(const QList<QByteArray>& list) { return list.at(below(list.size())); }
    void change(QByteArray* input);
    void changeBytes(QByteArray* input, int at);
    void replacePiece(QByteArray* input, char separator, const QByteArray& by);

    QList<QByteArray> inputs;
    QList<QByteArray> tokens;
    std::mt19937 random;
};

/// The tokens of a dictionary in libFuzzer's form: lines of name="text", \xNN for a byte. Lines of another form are
/// comments.
QList<QByteArray> dictionaryTokens(const QByteArray& dictionary);
