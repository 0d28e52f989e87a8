#pragma once

#include <QEvent>
#include <QObject>
#include <QPaintEvent>
#include <QRegion>
#include <QTest>
#include <QWidget>

/// What of a shown widget is repainted.
class repaintwatch : public QObject {
public:
    explicit repaintwatch(QWidget& widget)
        : widget(widget)
    {
        widget.show();
        shown = QTest::qWaitForWindowExposed(&widget);
        painted();
        widget.installEventFilter(this);
    }

    /// The region that was repainted since the last call, when nothing is waiting to be repainted any more.
    QRegion painted()
    {
        // A repaint is a posted event of the window; what is pending now is delivered here, however long it takes.
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
        const QRegion region = repainted;
        repainted = QRegion();
        return region;
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            repainted += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }

    bool shown = false;

private:
    QWidget& widget;
    QRegion repainted;
};
