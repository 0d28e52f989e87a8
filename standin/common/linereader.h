#pragma once

#include <QByteArray>
#include <QObject>
#include <QQueue>

class QSocketNotifier;

/// Lines from standard input, one an event. A line whose receiver enters a nested event loop does not hold up the next.
class linereader : public QObject {
    Q_OBJECT

public:
    explicit linereader(QObject* parent = nullptr);

    /// Writes one line to standard output and flushes it.
    static void writeLine(const QByteArray& line);

signals:
    void lineRead(const QByteArray& line);
    /// Standard input was closed: whoever played this program is gone.
    void closed();

protected:
    bool event(QEvent* arrival) override;

private:
    void readAvailable();

    QSocketNotifier* const notifier;
    QByteArray incoming;
    QQueue<QByteArray> lines;
};
