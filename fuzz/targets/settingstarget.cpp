#include "settingstarget.h"

#include "must.h"
#include "plugin/settings.h"

#include <QFile>

settingstarget::settingstarget() { host.pluginPath = "/nonexistent/"; }

void settingstarget::run(const QByteArray& input)
{
    // A name of its own for each input: the toolkit keeps what it read by the name of the file.
    host.configPath = QFile::encodeName(directory.path()) + '/' + QByteArray::number(++files) + '-';
    QFile file(QFile::decodeName(host.configPath + "kelvor.conf"));
    must(file.open(QIODevice::WriteOnly), "no settings file");
    file.write(input);
    file.close();
    const settings read = loadSettings(host.table());
    saveSettings(host.table(), read);
    const settings again = loadSettings(host.table());
    must(again.playsound == read.playsound && again.awayreject == read.awayreject
             && again.onlyactivetab == read.onlyactivetab && again.pong == read.pong,
         "a switch does not survive a save");
    must(again.defaultwidth == read.defaultwidth && again.defaultheight == read.defaultheight,
         "a size does not survive a save");
    must(again.downloaddir == read.downloaddir && again.soundpath == read.soundpath, "a path does not survive a save");
    file.remove();
    const settings defaults;
    changed +=
        read.pong != defaults.pong || read.defaultwidth != defaults.defaultwidth || read.soundpath != defaults.soundpath
        ? 1
        : 0;
}
