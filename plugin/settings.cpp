#include "settings.h"

#include "hostapi/hostcalls.h"
#include "packedvalues.h"

#include <QDir>
#include <QFile>
#include <QSettings>

namespace {

constexpr char downloaddirKey[] = "downloaddir";
constexpr char playsoundKey[] = "playsound";
constexpr char soundpathKey[] = "soundpath";
constexpr char awayrejectKey[] = "awayreject";
constexpr char onlyactivetabKey[] = "onlyactivetab";
constexpr char defaultwidthKey[] = "defaultwidth";
constexpr char defaultheightKey[] = "defaultheight";
constexpr char pongKey[] = "pong";

QString fileName(const TS3Functions& functions)
{
    return QString::fromLatin1("%1kelvor.conf").arg(hostcalls::configPath(functions));
}

// Whether the toolkit may read the file. One that is not there is none to read.
bool isSafe(const QString& name)
{
    QFile file(name);
    return !file.open(QIODevice::ReadOnly) || !holdsPackedValues(file.readAll());
}

// The toolkit caches the keys of a file beyond the life of this library, so they are always copied to the heap.
QString key(const char* name) { return QString::fromLatin1(name); }

QString defaultDownloadDir(const TS3Functions& functions)
{
    const QString subdirectory = QString::fromLatin1("kelvor");
    QDir dir(hostcalls::pluginPath(functions));
    if (!dir.cd(subdirectory) && dir.mkdir(subdirectory))
        static_cast<void>(dir.cd(subdirectory));
    return dir.absolutePath();
}

} // namespace

settings loadSettings(const TS3Functions& functions)
{
    const QString name = fileName(functions);
    settings values;
    if (!isSafe(name)) {
        values.downloaddir = defaultDownloadDir(functions);
        return values;
    }
    const QSettings file(name, QSettings::IniFormat);
    values.downloaddir =
        file.contains(key(downloaddirKey)) ? file.value(key(downloaddirKey)).toString() : defaultDownloadDir(functions);
    values.playsound = file.value(key(playsoundKey), values.playsound).toBool();
    values.soundpath = file.value(key(soundpathKey), values.soundpath).toString();
    values.awayreject = file.value(key(awayrejectKey), values.awayreject).toBool();
    values.onlyactivetab = file.value(key(onlyactivetabKey), values.onlyactivetab).toBool();
    values.defaultwidth = file.value(key(defaultwidthKey), values.defaultwidth).toInt();
    values.defaultheight = file.value(key(defaultheightKey), values.defaultheight).toInt();
    values.pong = file.value(key(pongKey), values.pong).toBool();
    return values;
}

void saveSettings(const TS3Functions& functions, const settings& values)
{
    const QString name = fileName(functions);
    // The toolkit reads a file before it writes it. What could not be read is no loss.
    if (!isSafe(name) && !QFile::remove(name))
        return;
    QSettings file(name, QSettings::IniFormat);
    file.setValue(key(downloaddirKey), values.downloaddir);
    file.setValue(key(playsoundKey), values.playsound);
    file.setValue(key(soundpathKey), values.soundpath);
    file.setValue(key(awayrejectKey), values.awayreject);
    file.setValue(key(onlyactivetabKey), values.onlyactivetab);
    file.setValue(key(defaultwidthKey), values.defaultwidth);
    file.setValue(key(defaultheightKey), values.defaultheight);
    file.setValue(key(pongKey), values.pong);
}
