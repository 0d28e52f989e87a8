#pragma once

#include <QObject>

class QSocketNotifier;

/// SIGINT, SIGTERM and SIGHUP (the terminal was closed) as an event, so that a program ends through its event loop and
/// leaves nothing behind. One lives a process.
class endsignals : public QObject {
    Q_OBJECT

public:
    explicit endsignals(QObject* parent = nullptr);
    ~endsignals() override;

signals:
    void caught();

private:
    void wake();

    QSocketNotifier* notifier = nullptr;
};
