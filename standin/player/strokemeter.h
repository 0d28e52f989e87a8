#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <QWidget>

/// Strokes as a measurement numbers them: each has a place of its own on the canvas, so that it is known when it came.
struct strokeseries {
    int first = 0; ///< number of the first
    int step = 1; ///< from one number to the next; others paint those between
    int count = 0;

    int number(int index) const { return first + index * step; }
};

/// Paints a series at an even pace with the tool that is on, each stroke from press to release at once, and measures
/// when it was due: a stroke that comes late because the client is busy has waited since then.
class strokepainter : public QObject {
    Q_OBJECT

public:
    /// pace: strokes a second.
    strokepainter(QWidget* canvas, const strokeseries& series, double pace, QObject* parent = nullptr);

    bool isDone() const { return due.size() == series.count; }
    /// In nanoseconds of the steady clock, which is one for all processes of a machine.
    const QVector<qint64>& times() const { return due; }

private:
    void paintDue();
    void paint(int number);

    const QPointer<QWidget> canvas;
    const strokeseries series;
    const double pace;
    const qint64 begin;
    QTimer timer;
    QVector<qint64> due;
};

/// Looks after each repaint of a white canvas which strokes of a series have come to it. They come in order, since one
/// client paints them.
class strokewatcher : public QObject {
    Q_OBJECT

public:
    strokewatcher(QWidget* canvas, const strokeseries& series, QObject* parent = nullptr);

    bool isDone() const { return seen.size() == series.count; }
    const QVector<qint64>& times() const { return seen; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void look();

    const QPointer<QWidget> canvas;
    const strokeseries series;
    QVector<qint64> seen;
    bool lookWaits = false;
    bool looking = false; ///< which paints the widget, too
};
