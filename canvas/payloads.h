#pragma once

#include <QColor>
#include <QPoint>
#include <QRect>
#include <QString>

#include <optional>

/// The strings inside an extended paint message, written and read. Positions are canvas pixels and may be any number a
/// peer sends; a token that is no number reads as 0. Texts are read by the text tool itself.
namespace payloads {

/// The region of an effect that works on the whole canvas; compared exactly.
inline QLatin1String wholeCanvas() { return QLatin1String("full"); }

/// A finished text in the box with these corners. Blanks in the text are not escaped, on purpose: peers drop such a
/// text, and all participants must go on reading the same.
QString textData(const QColor& color, qreal thickness, const QPoint& first, const QPoint& second, const QString& text);

struct fillseed {
    QColor color;
    QPoint pos;
};
QString fillData(const QColor& color, const QPoint& pos);
/// Nothing when data has not exactly two parts.
std::optional<fillseed> readFill(const QString& data);

/// "left|top right|bottom", the last two belonging to the rectangle.
QString regionData(const QRect& region);
/// Nothing when data has not exactly two parts. The rectangle is not normalised, and its width may not fit an int.
std::optional<QRect> readRegion(const QString& data);

} // namespace payloads
