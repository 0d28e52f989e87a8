// Writes the inputs that the corpora begin with: makecorpus DIRECTORY. Files that are there are replaced, others stay,
// for they are what fuzzing has found.

#include "fuzztarget.h"
#include "seeds.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>

#include <cstdio>

int main(int count, char* arguments[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(count, arguments);
    if (count != 2) {
        std::fputs("makecorpus DIRECTORY\n", stderr);
        return 2;
    }
    for (const char* target : targetNames) {
        const QDir directory(QString::fromLocal8Bit(arguments[1]) + QLatin1Char('/') + QLatin1String(target));
        directory.mkpath(QString::fromLatin1("."));
        const QMap<QByteArray, QByteArray> seeds = seedsOf(target);
        for (auto seed = seeds.begin(); seed != seeds.end(); ++seed) {
            QFile file(directory.filePath(QString::fromLatin1(seed.key())));
            if (!file.open(QIODevice::WriteOnly) || file.write(seed.value()) != seed.value().size()) {
                std::fprintf(stderr, "%s cannot be written\n", qPrintable(file.fileName()));
                return 1;
            }
        }
    }
    return 0;
}
