#pragma once

#include <QByteArray>
#include <QVector>

/// One message of each kind as peers send it, in order of the kinds.
inline QVector<QByteArray> exampleMessages()
{
    return {
        "\x01 2 12",
        "\x02 34 5 6",
        "\x03 34 7 18446744073709551615",
        "\x04 34 5 6",
        "\x05 34 5 6",
        "\x06 12 45",
        "\x07 12 4500",
        "\x08 12 45",
        "\x09 12 4500",
        "\x0a 12 45",
        "\x0b 12 45",
        "\x0c 12 45",
        "\x0d 12",
        "\x0e 12",
        "\x0f 12",
        "\x10 12 640 480 7 true 1234 /shared/cat.png",
        "\x11 34 \x02 #ff0000 1.5 10|20 11|21",
        "\x12 12",
        "\x13 34 \x03 #000000 1 30|40 200|80 hello world",
        "\x14 12 true",
        "\x15 12",
        "\x16 12",
        "\x17 12",
        "\x18 12",
    };
}
