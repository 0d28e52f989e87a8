#pragma once

#include <QColor>
#include <QPainter>
#include <QPoint>
#include <QString>

/// The text tool: a box is dragged, then keys are typed into it, by key code and not through an edit widget. Return,
/// Enter, a press or the loss of focus burns the text into the picture. Arguments and results are those of brush.
///
/// finished is written only when a text was finished; it receives a new string that the caller deletes.
class textbrush {
public:
    bool mousePress(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint,
                    QString** finished);
    bool mouseMove(QPainter* painter, Qt::MouseButtons buttons, QPoint pos, QColor color, qreal thick,
                   bool* recordPoint);
    bool mouseRelease(QPainter* painter, int button, QPoint pos, QColor color, qreal thick, bool* recordPoint);
    /// False when no box is open or the key types nothing; the canvas then need not repaint.
    bool keyPress(QPainter* painter, QColor color, qreal thick, int key, Qt::KeyboardModifiers modifiers,
                  QString** finished);
    /// Burns an open text in; false when there is none.
    bool finish(QPainter* painter, QColor color, qreal thick, QString** finished);
    void drawPreview(QPainter* painter, QColor color, qreal thick);
    /// data is "colour width x|y x|y text". A text with a blank makes a sixth part and is not painted; it is not mended
    /// here, for all participants must go on reading the same.
    void replay(QPainter* painter, QString data);

private:
    void takeText(QString** finished);

    QPoint startPoint;
    QPoint endPoint;
    bool editing = false;
    QString text;
};
