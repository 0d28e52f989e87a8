#pragma once

#include "hostapi/hosttypes.h"

#include <QTableWidgetItem>

/// The item in column 0 of every row of the remote file table; it is what makes the row a channel, a directory or a
/// file. The table owns it.
class mytableitem : public QTableWidgetItem {
public:
    static constexpr int channelKind = 1;
    static constexpr int directoryKind = 2;
    static constexpr int fileKind = 3;

    /// id is the channel's, 0 for directories and files.
    mytableitem(const QString& text, int kind, uint64 id);

    uint64 id() const { return channelID; }
    int kind() const { return rowKind; }
    /// Whether the channel asks for a password; says something about channels only.
    bool passworded() const { return channelPassworded; }
    void setPassworded(bool passworded) { channelPassworded = passworded; }

    bool operator<(const QTableWidgetItem& other) const override;

private:
    uint64 channelID;
    int rowKind;
    bool channelPassworded = false;
};
