#pragma once

#include <QByteArray>
#include <QtEndian>

/// What PNG files are made of.
inline quint32 crcOf(const QByteArray& bytes)
{
    quint32 crc = 0xffffffff;
    for (const char byte : bytes) {
        crc ^= static_cast<uchar>(byte);
        for (int bit = 0; bit < 8; ++bit)
            crc = crc & 1 ? 0xedb88320 ^ (crc >> 1) : crc >> 1;
    }
    return ~crc;
}

inline QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

inline QByteArray pngChunk(const QByteArray& name, const QByteArray& content)
{
    return bigEndian(static_cast<quint32>(content.size())) + name + content + bigEndian(crcOf(name + content));
}

/// A text that is short packed and long unpacked.
inline QByteArray packedText(int length)
{
    // The toolkit puts the length in front of what it compresses.
    return pngChunk("zTXt", QByteArray("Comment\0\0", 9) + qCompress(QByteArray(length, 'x'), 9).mid(4));
}
