#pragma once

#include <QByteArray>

#include <random>
#include <vector>

/// What a message is made of by lot: the same each time for the same message, but for the colour of a fill, since a
/// second one of the same colour would find nothing to do.
class messagedice {
public:
    messagedice(int message, int turn)
        : turn(turn)
        , random(static_cast<unsigned int>(message))
    {
    }

    const char* fillColor() const { return turn % 2 == 0 ? "#ff0000" : "#00ff00"; }
    /// As many points as a message can carry, or fewer.
    QByteArray points(int most);

private:
    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned int>(limit)); }

    int turn;
    std::mt19937 random;
};

/// One sort of paint messages, and the picture on which it takes longest.
struct messagesort {
    enum class picture { white, noise, maze };

    static constexpr int side = 2000; ///< pixels across and down of the canvas that the messages are meant for

    const char* name;
    picture on;
    QByteArray (*make)(messagedice& dice);
};

/// The sorts that cost a receiver most.
std::vector<messagesort> costlySorts();
