#pragma once

#include "standin/common/voicetypes.h"

#include <QString>

#include <optional>

/// The files of the server's channels on disk, one directory a channel. Paths come from clients and never lead out of
/// their channel's directory. Functions give ERROR_ok or the server's error.
class filestore {
public:
    /// root is made when it is missing.
    explicit filestore(const QString& root);

    bool isUsable() const;
    /// The directory of a channel, made when it is missing.
    QString channelDirectory(quint64 channel) const;

    unsigned int list(quint64 channel, const QByteArray& path, QVector<fileentry>* entries) const;
    /// The file on disk behind a path that is to be read.
    unsigned int locateForReading(quint64 channel, const QByteArray& path, QString* file) const;
    /// The file on disk behind a path that is to be written; its directory exists.
    unsigned int locateForWriting(quint64 channel, const QByteArray& path, bool overwrite, QString* file) const;

    /// A path without doubled or outer slashes; empty when it holds "..", ".", a control character or a backslash.
    static std::optional<QString> cleaned(const QByteArray& path);

private:
    bool staysInside(quint64 channel, const QString& existing) const;

    const QString root;
};
