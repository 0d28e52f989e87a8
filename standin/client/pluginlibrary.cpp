#include "pluginlibrary.h"

#include "hostservice.h"

#include "hostapi/pluginname.h"

#include <QFileInfo>

#include <dlfcn.h>

namespace {

constexpr const char* neededExports[] = {
    "ts3plugin_name",   "ts3plugin_version",     "ts3plugin_apiVersion",
    "ts3plugin_author", "ts3plugin_description", "ts3plugin_setFunctionPointers",
    "ts3plugin_init",   "ts3plugin_shutdown",
};

} // namespace

pluginlibrary::pluginlibrary(hostservice* host, QObject* parent)
    : QObject(parent)
    , host(host)
{
    // Everything is bound at once, so that a missing function shows here and not in the middle of a session.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
}

pluginlibrary::~pluginlibrary()
{
    shutdown();
    unload();
}

bool pluginlibrary::load(const QString& file, QString* error)
{
    if (!QFileInfo(file).isFile()) {
        *error = QStringLiteral("There is no plugin '%1'.").arg(file);
        return false;
    }
    library.setFileName(QFileInfo(file).absoluteFilePath());
    if (!library.load()) {
        *error = QStringLiteral("The plugin cannot be loaded: %1").arg(library.errorString());
        return false;
    }
    if (start(error))
        return true;
    running = false;
    library.unload();
    return false;
}

bool pluginlibrary::start(QString* error)
{
    const QString missing = missingExport();
    if (!missing.isEmpty()) {
        *error = QStringLiteral("'%1' is no plugin: it does not export %2.").arg(library.fileName(), missing);
        return false;
    }
    const int version = reinterpret_cast<int (*)()>(library.resolve("ts3plugin_apiVersion"))();
    flavour = takes(version) ? flavourFor(version) : nullptr;
    if (!flavour) {
        *error = refusalOf(version);
        return false;
    }
    // Without the platform that today's files bear behind their names: peers of interface 8 know none.
    host->pluginName = pluginStem(QFileInfo(library.fileName()).fileName()).toUtf8();
    // A new id at each load: whoever sends under an old one is found out.
    host->pluginID = host->pluginName + '#' + QByteArray::number(++loads);

    flavour->offerTable(library.resolve("ts3plugin_setFunctionPointers"));
    running = true;
    if (reinterpret_cast<int (*)()>(library.resolve("ts3plugin_init"))() != 0) {
        *error = QStringLiteral("The plugin could not start.");
        return false;
    }
    callEvent(flavour->registerSymbol, host->pluginID.constData());
    emit started();
    return true;
}

void pluginlibrary::shutdown()
{
    if (!running)
        return;
    // No event reaches a plugin that is ending, not even one from a nested loop that its end lets go.
    running = false;
    reinterpret_cast<void (*)()>(library.resolve("ts3plugin_shutdown"))();
    emit stopped();
}

bool pluginlibrary::unload()
{
    if (!library.isLoaded())
        return true;
    const QByteArray file = QFile::encodeName(library.fileName());
    flavour = nullptr;
    host->pluginID.clear();
    library.unload();
    void* const mapped = ::dlopen(file.constData(), RTLD_NOLOAD | RTLD_LAZY);
    if (!mapped)
        return true;
    ::dlclose(mapped);
    return false;
}

QString pluginlibrary::about(const char* question)
{
    if (!library.isLoaded())
        return QString();
    const QFunctionPointer answer = library.resolve(question);
    return answer ? QString::fromUtf8(reinterpret_cast<const char* (*)()>(answer)()) : QString();
}

QString pluginlibrary::keyword() { return running ? about("ts3plugin_commandKeyword") : QString(); }

bool pluginlibrary::processCommand(uint64 schid, const QString& words)
{
    const QFunctionPointer process = running ? library.resolve("ts3plugin_processCommand") : nullptr;
    return process && reinterpret_cast<int (*)(uint64, const char*)>(process)(schid, words.toUtf8().constData()) == 0;
}

bool pluginlibrary::offersConfigure()
{
    const QFunctionPointer offers = running ? library.resolve("ts3plugin_offersConfigure") : nullptr;
    return offers && reinterpret_cast<int (*)()>(offers)() == PLUGIN_OFFERS_CONFIGURE_QT_THREAD;
}

void pluginlibrary::configure(QWidget* parent)
{
    if (offersConfigure())
        callEvent("ts3plugin_configure", static_cast<void*>(this), static_cast<void*>(parent));
}

void pluginlibrary::deliverCommand(uint64 schid, const QByteArray& plugin, const QByteArray& text,
                                   const commandinvoker& invoker)
{
    const QFunctionPointer event = running ? library.resolve("ts3plugin_onPluginCommandEvent") : nullptr;
    if (!event)
        return;
    flavour->deliverCommand(event, schid, plugin.constData(), text.constData(), invoker);
}

// What a real client says, which tells its own versions and the plugin's too.
QString pluginlibrary::refusalOf(int apiVersion) const
{
    QStringList taken;
    for (const hostflavour* one : {&hostflavour8(), &hostflavour26()}) {
        if (takes(one->apiVersion))
            taken.append(QString::number(one->apiVersion));
    }
    return QStringLiteral("The plugin '%1' is not loaded: its API version is not compatible. This client takes %2, the "
                          "plugin has %3.")
        .arg(QFileInfo(library.fileName()).fileName(), taken.join(QStringLiteral(" and ")))
        .arg(apiVersion);
}

QString pluginlibrary::missingExport()
{
    for (const char* name : neededExports) {
        if (!library.resolve(name))
            return QLatin1String(name);
    }
    return QString();
}
