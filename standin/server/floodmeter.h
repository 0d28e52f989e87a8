#pragma once

#include <QtGlobal>

/// What the flood rule says about one command.
enum class floodverdict {
    pass, ///< relayed
    drop, ///< dropped: the sender stands at the limit
    block, ///< dropped, and the sender is to be shut out
};

/// A server's flood rule for one client: every plugin command costs points whatever its number of targets, and time
/// forgives them.
class floodmeter {
public:
    static constexpr int commandCost = 5;
    static constexpr int forgiven = 5; ///< points an interval
    static constexpr qint64 interval = 500; ///< milliseconds
    static constexpr int dropLimit = 150;
    static constexpr int blockLimit = 250;

    /// now: milliseconds of any clock that never goes back.
    floodverdict commandAt(qint64 now);
    int points() const { return current; }

private:
    int current = 0;
    qint64 lastForgiven = -1;
};
