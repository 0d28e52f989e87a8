#pragma once

#include "canvas/effects.h"
#include "canvas/paintscene.h"

#include <QImage>
#include <QList>
#include <QPainter>
#include <QPoint>
#include <QString>

#include <optional>

/// What a canvas sent: a stroke, or a tool with its string.
struct sentpaint {
    bool extended = false;
    kelvortool tool = kelvortool::notool;
    QList<QPoint> points;
    QString data;
};
bool operator==(const sentpaint& a, const sentpaint& b);

/// The canvas once more, event by event and in the plainest steps: the judge of what the real one paints, sends and
/// shows, whatever is done to it and in whatever order. It repaints everything, remembers nothing for later and calls
/// nothing of the real one.
class literalscene {
public:
    explicit literalscene(const QSize& size);

    /// A null image opens blank paper.
    void setImage(const QImage& file, bool asBackground);
    void setTool(kelvortool newTool);
    void setColor(const QColor& newColor) { color = newColor; }
    void setThickness(qreal newThickness) { thickness = newThickness; }

    void press(Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers);
    void move(Qt::MouseButtons buttons, const QPoint& pos, Qt::KeyboardModifiers modifiers);
    void release(Qt::MouseButton button, const QPoint& pos, Qt::KeyboardModifiers modifiers);
    void keyDown(int key, Qt::KeyboardModifiers modifiers);
    void keyUp(int key);
    void loseFocus();
    void clear();
    /// One of the five tools that stand for an effect.
    void apply(kelvortool effect);

    void applyDraw(kelvortool painted, const QColor& strokeColor, qreal thick, const QList<QPoint>& path);
    void applyExtendedDraw(kelvortool painted, const QString& data);

    /// What the widget shows, which has the size that was asked for.
    QImage shown() const;
    QRect selected() const;
    const QImage& picture() const { return canvas; }
    QList<sentpaint> takeSent();

private:
    struct corners {
        QPoint start;
        QPoint end;
        bool shiftHeld = false;
        bool areSet() const { return start != QPoint(-1, -1) && end != QPoint(-1, -1); }
        QRect rect() const { return QRect(start, end); }
    };

    static void drawText(QPainter& painter, const QPen& pen, const QRect& box, const QString& text);
    corners* cornersOfTool();
    void pressText(QPainter& painter, const QPoint& pos);
    void pressSelection(const QPoint& pos);
    bool releaseSelection(QPainter& painter, const QPoint& pos);
    void paintStep(QPainter& painter, const QPoint& pos);
    void paintShape(QPainter& painter, const QPoint& from, const QPoint& to, bool regular) const;
    void deliverText();
    void drawOverlay(QPainter& painter) const;
    void drawSelection(QPainter& painter) const;
    void sendStroke();

    QSize size;
    QImage canvas;
    QImage background;
    bool hasBackground = false;
    kelvortool tool = kelvortool::notool;
    QColor color = Qt::black;
    qreal thickness = 1;
    QList<QPoint> points;
    QList<sentpaint> sent;

    QPoint pencilLast;
    QPoint eraserLast;
    QPoint airbrushLast;
    corners line;
    corners rect;
    corners ellipse;

    corners box;
    bool editing = false;
    QString text;
    std::optional<QString> finished;

    corners band;
    QPoint grabPoint;
    QPoint dragPoint;
    QImage selectedImage;
    bool moving = false;
};
