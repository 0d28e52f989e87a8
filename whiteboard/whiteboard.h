#pragma once

#include "brushes/kelvortool.h"
#include "hostapi/ts3functions.h"

#include <QColor>
#include <QDialog>
#include <QList>
#include <QPoint>
#include <QPointer>
#include <QString>

class kelvorprotocol;
class mysplitter;
class paintscene;
class QAction;
class QDoubleSpinBox;
class QHBoxLayout;
class QListWidget;
class QScrollArea;
class QSlider;
class QStatusBar;
class QToolBar;
class QToolButton;
class QVBoxLayout;

/// The drawing window of one running session on one server connection: the canvas with its tools, and the list of the
/// other participants, to all of whom every local stroke is sent. The controller makes it on the heap without a parent,
/// connects and shows it, and forgets it on closed(); the window then deletes itself, and its end says logout.
class whiteboard : public QDialog {
    Q_OBJECT

public:
    /// For the host of the session. width and height are in pixels, participants are the clients that have accepted, in
    /// that order, localPath is the start picture or empty. Sizes without a pixel, and such as no memory can be spent
    /// on, open a window without a canvas to paint on.
    whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
               const QList<anyID>& participants, int width, int height, const QString& localPath, bool background,
               const QString& downloadDir, QWidget* parent);

    /// For a guest; the last participant is the host of the session. A channel other than 0 holds the picture, size
    /// bytes at remotePath: it is fetched in nested event loops before the constructor returns. controller bears the
    /// signals fileTransferStatus(anyID,uint,QString,uint64,uint64) and shuttingDown(). When the latter came meanwhile,
    /// the session is over on return: there is nothing to connect, and the maker deletes the window.
    whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
               const QList<anyID>& participants, int width, int height, uint64 channel, const QString& remotePath,
               uint64 size, bool background, QObject* controller, const QString& downloadDir, QWidget* parent);

    ~whiteboard() override;

signals:
    /// The window is going away, by whatever road but its destruction; emitted once.
    void closed(uint64 schandler);
    // Relays of the client's file events to the file dialogs that the window runs.
    void fileTransferStatus(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize, uint64 schid);
    void fileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                  int type);

public slots:
    // Messages and events of all connections come here; what is of another connection or a stranger is dropped.
    void onAccept(uint64 schandler, anyID sender);
    void onLogout(uint64 schandler, anyID sender);
    void onDraw(uint64 schandler, char tool, QString color, qreal thick, QList<QPoint> data, anyID sender);
    void onExtendedDraw(uint64 schandler, char tool, QString data, anyID sender);
    void onClientLeft(uint64 schandler, anyID clientid, uint64);
    void onFileTransferStatusEvent(anyID transferID, uint status, QString statusMessage, uint64 remotefileSize,
                                   uint64 schid);
    void onDownloadFinished(uint64 schandler, bool result, anyID sender);
    void onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size, uint64 datetime,
                    int type);

protected:
    void closeEvent(QCloseEvent* event) override;

protected slots:
    void sendPaintData(kelvortool thetool, QList<QPoint> points);
    void sendExtendedPaintData(kelvortool thetool, QString data);

    void onSelectButtonClicked(bool checked);
    void onPencilButtonClicked(bool checked);
    void onLineButtonClicked(bool checked);
    void onRectButtonClicked(bool checked);
    void onEllipseButtonClicked(bool checked);
    void onEraserButtonClicked(bool checked);
    void onTextButtonClicked(bool checked);
    void onFillButtonClicked(bool checked);
    /// No button drives it: the airbrush is for strokes that others send.
    void onAirbrushButtonClicked(bool checked);

    void onColorButtonClicked();
    void onSwapClicked();
    void onInvertClicked();
    void onFlipHorizontallyClicked();
    void onFlipVerticallyClicked();
    void onGrayscaleClicked();
    void onClearButtonClicked();
    void onSaveButtonClicked();
    void onUploadButtonClicked();
    void onAboutButtonClicked();
    void onThicknessSliderChanged(int newval);
    void onThicknessSpinChanged(double newval);
    void repairFocus();

private slots:
    void leaveSession();
    void onShuttingDown();

private:
    struct toolentry;
    static const toolentry tools[8];

    /// What both have in common; the window is not filled yet.
    whiteboard(const TS3Functions& functions, kelvorprotocol* protocol, uint64 schandler,
               const QList<anyID>& participants, int width, int height, const QString& downloadDir, QWidget* parent);

    void buildWidgets(int width, int height);
    void buildActionBar();
    void buildThicknessWidgets();
    void buildToolBar();
    void buildCenter(const QSize& canvas);
    QAction* addToActionBar(const QIcon& icon, const char* text, void (whiteboard::*slot)(),
                            Qt::ConnectionType connection = Qt::AutoConnection);
    bool mayPrompt() const;
    void toolToggled(kelvortool tool, bool checked);
    void showColor();
    void uploadPicture(uint64 channel, const QString& password, const QString& remotePath, const QString& name);

    QString fetchPicture(uint64 channel, const QString& remotePath, uint64 size, QObject* controller);
    void fillParticipantList();
    void setRowIcon(int row, bool hasPicture);
    int indexOf(uint64 connection, anyID client) const;
    void removeParticipant(uint64 connection, anyID client);

    TS3Functions ts3Functions;
    QPointer<kelvorprotocol> protocol;
    uint64 schandler;
    QList<anyID> participants; ///< the others; the index of one is the number of its row
    kelvortool currentTool = kelvortool::notool;
    QColor currentColor;
    double thickness = 1.0; ///< in pixels
    QString downloadDir;
    bool left = false; ///< the end was announced, or there is nobody left to announce it to

    QVBoxLayout* mainlayout;
    QHBoxLayout* centerlayout;
    mysplitter* splitter;
    QToolBar* actionbar;
    QSlider* thicknessslider; ///< in tenths of a pixel
    QDoubleSpinBox* thicknessspin; ///< in pixels
    QStatusBar* statusbar;
    QToolBar* toolbar;
    QScrollArea* scrollarea;
    paintscene* scene;
    QListWidget* participantlist;
    QToolButton* pencilbutton;
    QToolButton* linebutton;
    QToolButton* rectbutton;
    QToolButton* ellipsebutton;
    QToolButton* eraserbutton;
    QToolButton* textbutton;
    QToolButton* fillbutton;
    QToolButton* selectbutton;
    QAction* coloraction;
};
