#pragma once

#include <QByteArray>
#include <QList>
#include <QLocale>
#include <QPoint>
#include <QString>

#include <type_traits>

/// Calls and signals as one line of text, such as draw(2, "#ff0000", 1.5, [10|20 11|21], 34), so that tests compare and
/// print them alike. Reals are as short as they can be without losing a bit.
namespace calltext {

inline QByteArray text(const QString& value) { return '"' + value.toLatin1() + '"'; }

inline QByteArray text(qreal value)
{
    return QLocale::c().toString(value, 'g', QLocale::FloatingPointShortest).toLatin1();
}

template <typename T, std::enable_if_t<std::is_integral_v<T>, int> = 0> QByteArray text(T value)
{
    if constexpr (std::is_same_v<T, bool>)
        return value ? "true" : "false";
    else if constexpr (std::is_signed_v<T>)
        return QByteArray::number(static_cast<qlonglong>(value));
    else
        return QByteArray::number(static_cast<qulonglong>(value));
}

inline QByteArray text(const QList<QPoint>& points)
{
    QByteArray line = "[";
    for (const QPoint& point : points)
        line += (line.size() > 1 ? " " : "") + text(point.x()) + '|' + text(point.y());
    return line + ']';
}

/// A list that is ended by 0.
template <typename ID> QByteArray text(const ID* list)
{
    QByteArray line = "[";
    for (; *list != 0; ++list)
        line += (line.size() > 1 ? " " : "") + text(*list);
    return line + ']';
}

template <typename... Arguments> QByteArray call(const char* name, const Arguments&... arguments)
{
    QByteArray line = QByteArray(name) + '(';
    const char* comma = "";
    ((line += comma + text(arguments), comma = ", "), ...);
    return line + ')';
}

} // namespace calltext
