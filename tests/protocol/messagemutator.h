#pragma once

#include <QByteArray>
#include <QVector>

#include <random>

/// What peers never write in a part of a message and a reader meets all the same.
const QVector<QByteArray>& hostileParts();

/// Changes a message at a few places, the same ones in every run. The first byte is often kept, so that most of what
/// comes out finds a reader.
class messagemutator {
public:
    QByteArray mutated(QByteArray message);
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }

private:
    void change(QByteArray* message);
    void replacePart(QByteArray* message, const QByteArray& by);

    std::mt19937 random{20101};
};
