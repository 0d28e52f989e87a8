#pragma once

#include <QPoint>
#include <QSplitterHandle>

/// A handle of mysplitter, which owns it: tells of its double clicks, and keeps clicks apart from drags.
class mysplitterhandle : public QSplitterHandle {
    Q_OBJECT

public:
    mysplitterhandle(Qt::Orientation orientation, QSplitter* parent);

signals:
    /// The index of the handle in its splitter: it stands before the widget of the same index.
    void doubleClicked(int index);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    bool isDrag(const QPoint& position);

    /// The next mouse release belongs to a double click.
    bool ignoreRelease = false;
    /// The mouse went far enough since the press for its release to be the end of a drag.
    bool dragged = false;
    QPoint pressPosition;
};
