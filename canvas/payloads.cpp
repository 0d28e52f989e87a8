#include "payloads.h"

#include "brushes/pointtext.h"

#include <QStringList>

namespace {

QString pointText(const QPoint& point) { return QString::fromLatin1("%1|%2").arg(point.x()).arg(point.y()); }

constexpr QLatin1Char blank(' ');

/// Empty parts count as parts.
bool hasTwoParts(const QString& data) { return data.count(blank) == 1; }

QString part(const QString& data, int number) { return data.section(blank, number, number); }

} // namespace

QString payloads::textData(const QColor& color, qreal thickness, const QPoint& first, const QPoint& second,
                           const QString& text)
{
    // Joined and not filled into one pattern: a typed "%1" must stay what it is.
    const QStringList parts{color.name(), QString::number(thickness, 'g', 6), pointText(first), pointText(second),
                            text};
    return parts.join(blank);
}

QString payloads::fillData(const QColor& color, const QPoint& pos) { return color.name() + blank + pointText(pos); }

std::optional<payloads::fillseed> payloads::readFill(const QString& data)
{
    if (!hasTwoParts(data)) {
        return std::nullopt;
    }
    fillseed seed;
    seed.color.setNamedColor(part(data, 0));
    seed.pos = readPoint(part(data, 1));
    return seed;
}

QString payloads::regionData(const QRect& region)
{
    return pointText(region.topLeft()) + blank + pointText(region.bottomRight());
}

std::optional<QRect> payloads::readRegion(const QString& data)
{
    if (!hasTwoParts(data)) {
        return std::nullopt;
    }
    return QRect(readPoint(part(data, 0)), readPoint(part(data, 1)));
}
