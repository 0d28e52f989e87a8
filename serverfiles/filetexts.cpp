#include "filetexts.h"

#include <QDateTime>

#include <array>

namespace filetexts {

QString sizeText(uint64 size)
{
    constexpr std::array<const char*, 7> units{"Bytes", "KB", "MB", "GB", "TB", "PB", "EB"};
    std::size_t unit = 0;
    // Cut at each step once more, so that 1048575 bytes are 1023 KB. Sizes from 2^64 / 100 on wrap in the first step.
    while (size >= 1024 && unit + 1 < units.size()) {
        size = static_cast<uint64>(static_cast<double>((size * 100) >> 10) / 100.0);
        ++unit;
    }
    return QString::fromLatin1("%1 %2").arg(size).arg(QLatin1String(units[unit]));
}

QString dateText(uint64 datetime)
{
    // Dates of the file store are 32 bits of seconds; what lies above is not read.
    const auto seconds = static_cast<quint32>(datetime);
    return QDateTime::fromSecsSinceEpoch(seconds).toString(QString::fromLatin1("MMM dd hh:mm:ss yyyy"));
}

bool isPicture(const QString& name)
{
    // A name without a dot is its own suffix: a file called just "png" is a picture.
    const QString suffix = name.section(QLatin1Char('.'), -1).toLower();
    return suffix == QLatin1String("jpg") || suffix == QLatin1String("png") || suffix == QLatin1String("bmp")
        || suffix == QLatin1String("gif");
}

} // namespace filetexts
