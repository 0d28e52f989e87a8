#include "pathlabel.h"

#include <QPainter>

namespace {

// What a path may claim of a window that has the room; beyond, it is shortened.
constexpr int widestHint = 300;

} // namespace

pathlabel::pathlabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

QSize pathlabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {qMin(metrics.size(Qt::TextSingleLine, text()).width() + 2, widestHint), metrics.height()};
}

QSize pathlabel::minimumSizeHint() const { return {0, fontMetrics().height()}; }

void pathlabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width(), Qt::TextSingleLine);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
}
