#pragma once

#include "playverb.h"

#include "standin/common/linereader.h"

#include <QObject>
#include <QQueue>
#include <QTimer>

#include <optional>

/// Plays the client by lines on standard input: one command a line, each answered by exactly one line, "ok ..." or
/// "error ...". Commands run one after the other. None blocks, and each has a deadline: a command whose deadline passes
/// is answered with what it waited for. Nested event loops that a command sets off do not stop the commands behind it.
class clientplayer : public QObject {
    Q_OBJECT

public:
    explicit clientplayer(voiceclient* client);

    static constexpr int usualDeadline = 15 * 1000; ///< milliseconds; "within SECONDS" in front of a command changes it

signals:
    void answered(const QByteArray& line);

protected:
    bool event(QEvent* event) override;

private:
    void receive(const QByteArray& line);
    void begin(const QByteArray& line);
    void attempt();
    void settle(const playoutcome& outcome);
    void answer(bool good, const QString& text);

    voiceclient* const client;
    linereader input;
    verbtable verbs;
    QQueue<QByteArray> waiting;
    std::optional<playrequest> current;
    playoutcome afterActing; ///< what the current command becomes when its action has been delivered
    bool acting = false;
    QElapsedTimer clock;
    int deadline = usualDeadline;
    QTimer retryTimer;
};
