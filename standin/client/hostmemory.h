#pragma once

#include "hostapi/hosttypes.h"

#include <QByteArray>
#include <QSet>
#include <QVector>

/// The memory that the client hands out to the plugin, counted, so that every leak and every release of something else
/// shows. One lives a client.
class hostmemory {
public:
    hostmemory() = default;
    ~hostmemory();
    hostmemory(const hostmemory&) = delete;
    hostmemory& operator=(const hostmemory&) = delete;

    char* text(const QByteArray& bytes);
    /// Both end the list with 0.
    anyID* list(const QVector<quint16>& entries);
    uint64* list(const QVector<quint64>& entries);

    /// False, and nothing happens, for memory that was not handed out here or was released before.
    bool release(void* memory);

    int outstanding() const { return handedOut.size(); }
    int wrongReleases() const { return wrong; }

private:
    void* take(std::size_t bytes);

    QSet<void*> handedOut;
    int wrong = 0;
};
