#include "pluginname.h"

QString pluginStem(const QString& pluginName)
{
    QString stem = pluginName.section(QLatin1Char('.'), 0, 0);
    for (const char* platform : {"_linux_amd64", "_linux_x86", "_win64", "_win32", "_mac"}) {
        const QLatin1String suffix(platform);
        if (stem.endsWith(suffix)) {
            stem.chop(suffix.size());
            break;
        }
    }
    return stem;
}
