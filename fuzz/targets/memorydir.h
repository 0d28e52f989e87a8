#pragma once

#include <QDir>
#include <QString>

/// The form of a temporary directory's name for QTemporaryDir: in memory where the system offers that, since a disk
/// that is asked to keep some ten thousand small files takes more time than all the rest. TMPDIR has its way.
inline QString memoryDirForm()
{
    const QDir memory(QString::fromLatin1("/dev/shm"));
    const bool chosen = !qEnvironmentVariableIsEmpty("TMPDIR");
    return (memory.exists() && !chosen ? memory : QDir::temp()).filePath(QString::fromLatin1("kelvor-XXXXXX"));
}
