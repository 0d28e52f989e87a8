#include "temporarydirectory.h"

#include <QDir>

bool temporarydirectory::enter()
{
    directory.reset(new QTemporaryDir);
    before = qgetenv("TMPDIR");
    return directory->isValid() && qputenv("TMPDIR", directory->path().toLocal8Bit());
}

void temporarydirectory::leave()
{
    if (before.isNull())
        qunsetenv("TMPDIR");
    else
        qputenv("TMPDIR", before);
    directory.reset();
}

QStringList temporarydirectory::entries() const
{
    return QDir(path()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
}
