#pragma once

#include "protocol/kelvorprotocol.h"

#include <QByteArray>
#include <QList>

/// Writes down every signal of an endpoint as calltext, without the connection.
class signalrecorder : public QObject {
public:
    explicit signalrecorder(kelvorprotocol* protocol);

    /// Takes what was written down so far and forgets it.
    QList<QByteArray> take();

    QList<uint64> connections; ///< of each signal since the start

private:
    template <typename... Arguments>
    void record(kelvorprotocol* protocol, const char* name, void (kelvorprotocol::*signal)(uint64, Arguments...));

    QList<QByteArray> lines;
};
