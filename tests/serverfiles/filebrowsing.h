#pragma once

#include "fileparent.h"
#include "filewindow.h"
#include "prompts/heldwindow.h"
#include "tests/support/fakehost.h"
#include "tests/support/whenopen.h"

#include <QPointer>

/// A client with one open and one locked channel, a parent window, and one run of the remote file dialog over them.
class filebrowsing {
public:
    static constexpr uint64 connection = 7;
    static constexpr uint64 openChannel = 1; ///< "Lobby", row 0
    static constexpr uint64 lockedChannel = 4; ///< "Vault", row 1
    using actions = std::function<void(filewindow&)>;

    filebrowsing()
        : server(host.addServer(connection))
    {
        server.addChannel(lockedChannel, "Vault", 0, true);
    }
    ~filebrowsing() { delete parent; }

    /// Runs the open or the save mode with act as the user, who cancels in the end if act did not close the window. The
    /// dialog's answer; its results stand in channel, password, path, size and filename.
    bool open(const actions& act)
    {
        return run(act,
                   [this](ts3filedialog& dialog) { return dialog.getOpenFile(&channel, &password, &path, &size); });
    }
    bool save(const actions& act)
    {
        return run(act,
                   [this](ts3filedialog& dialog) { return dialog.getSaveFile(&channel, &password, &path, &filename); });
    }

    /// The client delivers an entry of a directory.
    void giveFile(const QString& name, uint64 fileSize = 1, const QString& directory = "/")
    {
        emit parent->fileList(connection, openChannel, directory, name, fileSize, 0, FileListType_File);
    }
    void giveDirectory(const QString& name, const QString& directory = "/")
    {
        emit parent->fileList(connection, openChannel, directory, name, 0, 0, FileListType_Directory);
    }

    /// Enters a directory that the client delivers, just for that, as the only one of the present directory.
    void enterDirectory(filewindow& window, const QString& name, const QString& present)
    {
        giveDirectory(name, present);
        QCOMPARE(window.table.rowCount(), 1);
        window.enter();
    }

    fakehost host;
    fakeserver& server;
    QPointer<fileparent> parent = new fileparent;
    uint64 channel = 77;
    QString password = "before";
    QString path = "before";
    uint64 size = 78;
    QString filename = "before";

private:
    bool run(const actions& act, const std::function<bool(ts3filedialog&)>& mode)
    {
        const heldwindow<ts3filedialog> dialog(new ts3filedialog(host.table(), connection, parent));
        QObject::connect(parent, &fileparent::fileList, dialog.get(), &ts3filedialog::onFileList);
        const whenopen<ts3filedialog> user([&act](ts3filedialog& shown) {
            const QPointer<ts3filedialog> self(&shown);
            filewindow window(shown);
            act(window);
            if (self && self->isVisible())
                self->reject();
        });
        const bool answer = mode(*dialog.get());
        [&user] { QVERIFY(user.ran()); }();
        return answer;
    }
};
