#pragma once

#include <QByteArray>
#include <QFile>

/// The bytes of a file in their order. They are read in blocks: what strangers keep in a channel may be far larger than
/// the picture that it claims to be.
class bytewalk {
public:
    explicit bytewalk(const QString& path);

    int next();
    void skip(qint64 count);
    /// Numbers of up to four bytes, by their first byte.
    quint32 little(int bytes);
    quint32 big(int bytes);

    /// How many bytes are passed: never more than there are.
    qint64 passed() const;
    /// Whether more was asked for than there is. All bytes behind the end are 0.
    bool isOver() const { return over; }

private:
    bool readBlock();

    QFile file;
    QByteArray block;
    int used = 0;
    bool over = false;
};
