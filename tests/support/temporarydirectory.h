#pragma once

#include <QScopedPointer>
#include <QStringList>
#include <QTemporaryDir>

/// Stands in for the system's temporary directory between enter() and leave().
class temporarydirectory {
public:
    bool enter();
    void leave();
    QString path() const { return directory->path(); }
    QString file(const QString& name) const { return directory->filePath(name); }
    QStringList entries() const;

private:
    QScopedPointer<QTemporaryDir> directory;
    QByteArray before;
};
