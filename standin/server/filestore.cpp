#include "filestore.h"

#include "hostapi/hosttypes.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

bool isForbidden(QChar letter)
{
    return letter.unicode() < 0x20 || letter == QLatin1Char('\\') || letter == QChar::ReplacementCharacter;
}

} // namespace

filestore::filestore(const QString& root)
    : root(QDir(root).absolutePath())
{
    QDir().mkpath(this->root);
}

bool filestore::isUsable() const { return QFileInfo(root).isDir() && QFileInfo(root).isWritable(); }

QString filestore::channelDirectory(quint64 channel) const
{
    const QString directory = QStringLiteral("%1/channel_%2").arg(root).arg(channel);
    QDir().mkpath(directory);
    return directory;
}

unsigned int filestore::list(quint64 channel, const QByteArray& path, QVector<fileentry>* entries) const
{
    const std::optional<QString> inside = cleaned(path);
    if (!inside)
        return ERROR_file_invalid_name;
    const QString directory = channelDirectory(channel) + QLatin1Char('/') + *inside;
    if (!QFileInfo(directory).isDir() || !staysInside(channel, directory))
        return ERROR_file_not_found;
    const QFileInfoList found =
        QDir(directory).entryInfoList(QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Name);
    for (const QFileInfo& file : found) {
        entries->append({file.fileName().toUtf8(), file.isDir() ? 0 : quint64(file.size()),
                         quint64(file.lastModified().toSecsSinceEpoch()), file.isDir()});
    }
    return ERROR_ok;
}

unsigned int filestore::locateForReading(quint64 channel, const QByteArray& path, QString* file) const
{
    const std::optional<QString> inside = cleaned(path);
    if (!inside || inside->isEmpty())
        return ERROR_file_invalid_name;
    *file = channelDirectory(channel) + QLatin1Char('/') + *inside;
    if (!QFileInfo(*file).isFile() || !staysInside(channel, *file))
        return ERROR_file_not_found;
    return ERROR_ok;
}

unsigned int filestore::locateForWriting(quint64 channel, const QByteArray& path, bool overwrite, QString* file) const
{
    const std::optional<QString> inside = cleaned(path);
    if (!inside || inside->isEmpty() || path.endsWith('/'))
        return ERROR_file_invalid_name;
    *file = channelDirectory(channel) + QLatin1Char('/') + *inside;
    const QFileInfo target(*file);
    if (!target.dir().exists() || !staysInside(channel, target.path()))
        return ERROR_file_not_found;
    if (target.isDir() || target.isSymLink())
        return ERROR_file_invalid_name;
    if (target.exists() && !overwrite)
        return ERROR_file_already_exists;
    return ERROR_ok;
}

std::optional<QString> filestore::cleaned(const QByteArray& path)
{
    const QString text = QString::fromUtf8(path);
    if (std::any_of(text.begin(), text.end(), isForbidden))
        return std::nullopt;
    const QStringList sections = text.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (sections.contains(QStringLiteral("..")) || sections.contains(QStringLiteral(".")))
        return std::nullopt;
    return sections.join(QLatin1Char('/'));
}

// Links inside the store may point anywhere; what they lead to counts only below the channel's directory.
bool filestore::staysInside(quint64 channel, const QString& existing) const
{
    const QString home = QFileInfo(channelDirectory(channel)).canonicalFilePath();
    const QString actual = QFileInfo(existing).canonicalFilePath();
    return actual == home || actual.startsWith(home + QLatin1Char('/'));
}
