#pragma once

#include "hostflavour.h"

#include <QByteArray>
#include <QLibrary>
#include <QObject>
#include <QString>

class hostservice;

/// The plugin's library from load to unload, reached through its exported functions alone: what is missing or of
/// another version is refused with a sentence. Owned by the client.
class pluginlibrary : public QObject {
    Q_OBJECT

public:
    explicit pluginlibrary(hostservice* host, QObject* parent = nullptr);
    ~pluginlibrary() override;

    /// Loads the library and brings it up: table, init, id. False with the reason; nothing of it is left then.
    bool load(const QString& file, QString* error);
    /// From here on takes plugins of this version of the interface alone, as a real client does; 0 takes all that are
    /// spoken here.
    void narrowTo(int apiVersion) { onlyVersion = apiVersion; }
    /// Lets the plugin end. Its code stays mapped, since some of it may still be on the stack.
    void shutdown();
    /// Unmaps the library after shutdown(); false when something keeps it mapped. Not from inside a call of the plugin.
    bool unload();

    hostservice& service() const { return *host; }
    bool isLoaded() const { return library.isLoaded(); }
    bool isRunning() const { return running; }
    /// How often it was loaded so far.
    int loadCount() const { return loads; }
    QString file() const { return library.fileName(); }
    int apiVersion() const { return flavour ? flavour->apiVersion : 0; }
    /// What the plugin says of itself; empty when not loaded.
    QString about(const char* question);
    QString keyword();

    /// The words behind the keyword; false when the plugin does not know them.
    bool processCommand(uint64 schid, const QString& words);
    bool offersConfigure();
    void configure(QWidget* parent);

    /// Calls an exported event, when the plugin runs and has it.
    template <typename... Argument> void callEvent(const char* name, Argument... arguments)
    {
        if (!running)
            return;
        if (const QFunctionPointer event = library.resolve(name))
            reinterpret_cast<void (*)(Argument...)>(event)(arguments...);
    }
    void deliverCommand(uint64 schid, const QByteArray& plugin, const QByteArray& text, const commandinvoker& invoker);

signals:
    void started();
    void stopped();

private:
    bool start(QString* error);
    QString missingExport();
    bool takes(int apiVersion) const { return onlyVersion == 0 || onlyVersion == apiVersion; }
    QString refusalOf(int apiVersion) const;

    hostservice* const host;
    QLibrary library;
    const hostflavour* flavour = nullptr;
    int onlyVersion = 0;
    bool running = false;
    int loads = 0;
};
