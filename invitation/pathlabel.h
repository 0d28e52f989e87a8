#pragma once

#include <QLabel>

/// A label for a path that somebody else has chosen: plain text on one line, shortened in its middle where the room
/// ends, so that no path can stretch the window. text() stays the whole path.
class pathlabel : public QLabel {
    Q_OBJECT

public:
    explicit pathlabel(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
