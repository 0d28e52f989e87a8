#pragma once

#include "brushes/kelvortool.h"
#include "effects.h"

#include <QColor>
#include <QImage>
#include <QList>
#include <QPoint>
#include <QString>
#include <QWidget>

#include <memory>

class airbrushbrush;
class ellipsebrush;
class eraserbrush;
class linebrush;
class pencilbrush;
class rectbrush;
class selectionbrush;
class textbrush;

/// The canvas of a whiteboard window, which owns it: the shared picture, the tools that paint on it, and the replay of
/// what peers paint. It knows neither sessions nor the wire; what the local user paints leaves it as signals, what a
/// peer painted comes in through applyDraw and applyExtendedDraw, which never emit.
///
/// A size that is not positive, or above mostPixels, is not held: such a canvas is empty and every operation harmless.
class paintscene : public QWidget {
    Q_OBJECT
public:
    paintscene(int width, int height, QWidget* parent);
    ~paintscene() override;

    /// Gives the layers their first content, once, right after construction: blank paper when path is empty, else the
    /// picture, to be painted on or as a background that no tool touches. The picture keeps the file's own size. A file
    /// that cannot be read leaves its layer as it stood; the mode is taken over all the same.
    void setImage(const QString& path, bool asBackground);
    /// Writes the merged picture as PNG, without previews. A save that fails is silent and leaves an existing file.
    void savePicture(const QString& path);

    /// Any change of the tool drops the selection; pending points and an open text stay.
    void setTool(kelvortool tool);
    void setThickness(qreal thickness);
    void setColor(const QColor& color);

    /// What peers painted. thick may be any number; a tool or a list that makes no sense paints nothing.
    void applyDraw(char tool, const QColor& color, qreal thick, QList<QPoint> path);
    void applyExtendedDraw(char tool, const QString& data);

    /// The local user's acts (send true) work on the selection, or on all when there is none, and are emitted. The
    /// replays (send false) take their area from data ("full", or "left|top right|bottom") and leave the repaint to the
    /// caller.
    void clearCanvas(bool send);
    void flipHorizontally(bool send, const QString& data);
    void flipVertically(bool send, const QString& data);
    void swapChannels(bool send, const QString& data);
    void invertColors(bool send, const QString& data);
    void grayscale(bool send, const QString& data);
    void floodFill(const QPoint& pos, const QColor& color);

    const QImage& picture() const { return canvas; } ///< the layer that is painted on

signals:
    void paintDataAvailable(kelvortool tool, QList<QPoint> points);
    void extendedPaintDataAvailable(kelvortool tool, QString data);
    /// At the very start of each press, before any tool sees it, so that the canvas can be given the keyboard.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct toolevent;
    struct toolrow;
    struct toolcalls;
    static const toolrow* rowOf(kelvortool tool);
    void loadLayer(QImage& layer, const QString& path, const QSize& size);
    void updateCursor();
    bool callTool(bool (*toolrow::*operation)(paintscene&, toolevent&), toolevent& event);
    void pressFill(const QPoint& pos);
    void record(const toolevent& event);
    void sendPoints();
    void deliverText(std::unique_ptr<QString> finished);
    void updateAfter(const QMouseEvent& event);
    void paintExposed(QPainter& screen, const QRect& exposed);
    bool hasOverlay() const;
    void drawOverlay(QImage& slice, const QPoint& origin);
    void applyEffect(effects::effect kind, kelvortool message, bool send, const QString& data);

    QImage canvas;
    QImage background; ///< null until there is one, for most sessions do without its memory
    bool hasBackground = false;
    std::unique_ptr<pencilbrush> pencil;
    std::unique_ptr<linebrush> line;
    std::unique_ptr<rectbrush> rect;
    std::unique_ptr<ellipsebrush> ellipse;
    std::unique_ptr<eraserbrush> eraser;
    std::unique_ptr<airbrushbrush> airbrush;
    std::unique_ptr<textbrush> text;
    std::unique_ptr<selectionbrush> selection;
    kelvortool tool = kelvortool::notool;
    QColor color;
    qreal thickness = 1.0;
    QList<QPoint> points;
    bool fillRunning = false;
    bool opened = false; ///< setImage was called
    bool backgroundCovers = false; ///< the background leaves nothing of the paper below it to be seen
    kelvortool pathTool = kelvortool::notool; ///< the path tool that painted last, and where it stood then
    QPoint pathEnd;
    kelvortool cursorTool = kelvortool::airbrush; ///< what the cursor was made for; the airbrush has none
    qreal cursorThickness = 0;
};
