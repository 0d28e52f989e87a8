#include "threadwatch.h"

#include <QDir>
#include <QFile>

namespace {

// A file dialog reads directories in the one, and large pictures are converted in the other. The kernel keeps 15
// letters.
const char* const namesOfQt[] = {"QFileInfoGather", "Thread (pooled)"};

bool isQt(const QByteArray& name)
{
    for (const char* const own : namesOfQt) {
        if (name == own)
            return true;
    }
    return false;
}

QString tasks() { return QStringLiteral("/proc/self/task"); }

} // namespace

threadwatch::threadwatch()
    : known(identifiers())
{
}

QSet<QString> threadwatch::identifiers()
{
    const QStringList names = QDir(tasks()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return QSet<QString>(names.begin(), names.end());
}

QStringList threadwatch::startedByOthers() const
{
    QStringList names;
    const QSet<QString> begun = identifiers() - known;
    for (const QString& identifier : begun) {
        QFile name(tasks() + '/' + identifier + QStringLiteral("/comm"));
        // One that cannot be opened has ended meanwhile.
        if (!name.open(QIODevice::ReadOnly))
            continue;
        const QByteArray text = name.readAll().trimmed();
        if (!text.isEmpty() && !isQt(text))
            names.append(QString::fromLocal8Bit(text));
    }
    return names;
}
