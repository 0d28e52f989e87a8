#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

/// The threads of this process, as the kernel lists them: remembers those that there were when it was made.
class threadwatch {
public:
    threadwatch();

    /// The names of the threads that began since and still run, but for those that Qt runs by itself.
    QStringList startedByOthers() const;

private:
    static QSet<QString> identifiers();

    QSet<QString> known;
};
