#pragma once

#include "stage.h"

#include <QVector>

#include <memory>
#include <optional>

/// How long strokes took from the moment when they were due at their painter until a peer's window showed them, in
/// milliseconds and in the order in which they were due.
using strokedelays = QVector<double>;

/// Some clients in one session, who paint at an even pace to be measured. The first hosts the session.
class paintinggroup {
public:
    explicit paintinggroup(const stageprops& props)
        : boards(props)
    {
    }

    /// Opens a session with so many participants, the host counted.
    bool open(int participants, QString* error);
    /// Lets the first painters of them paint, pace strokes a second in all, and takes each stroke's time at one peer.
    /// Leaves white canvases behind. Empty, with the reason, when the strokes did not all arrive.
    std::optional<strokedelays> paint(int painters, double pace, double seconds, QString* error);
    /// What server and clients have used so far, in seconds.
    double processorTime() const;
    bool close(QString* error) { return boards.endAll(error); }

    /// How many strokes find room on the canvas at a time.
    static constexpr int mostStrokes = 60000;

private:
    bool tell(int participant, const QString& command, QString* error, QString* answer = nullptr) const;
    bool clear(QString* error) const;

    stage boards;
};
