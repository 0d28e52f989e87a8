#pragma once

#include "lobbyfixture.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"

#include <QSize>
#include <QTemporaryDir>

#include <functional>

using filedialoguser = std::function<void(ts3filedialog&)>;
using transferuser = std::function<void(ts3downloaddialog&)>;

/// The lobby of a session's host, on the screen, with a directory of its own for downloads, and the user of the two
/// windows through which a picture is chosen and fetched.
class picturefixture : public lobbyfixture {
public:
    static constexpr uint complete = 0x811; ///< the status of a transfer at its end
    static constexpr uint64 remoteBytes = 12345;

    picturefixture();

    /// Presses the load button and plays the user of both windows; without wait no transfer may begin.
    void load(const filedialoguser& choose, const transferuser& wait = {});
    /// Enters channel 2, lets the file be listed and accepts it.
    filedialoguser choose(const QString& name);
    /// Brings the transfer to its end.
    transferuser finish();
    /// What the transfer leaves in the directory.
    void putFile(const QString& name, const QByteArray& content) const;
    void putPicture(const QString& name, QSize size) const;

    /// The text of an edit.
    QString shown(const char* edit) const;
    /// The error in the bar at the bottom.
    QString message() const;

    QTemporaryDir directory;
};
