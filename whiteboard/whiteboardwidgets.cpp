#include "whiteboard.h"

#include "brushes/picturefile.h"
#include "canvas/paintscene.h"
#include "dialogs/mysplitter.h"
#include "hostapi/hostcalls.h"
#include "participantdelegate.h"

#include <QDoubleSpinBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QVBoxLayout>

namespace {

// The size comes from a peer. What holds no pixel, and what would take gigabytes or is larger than a widget may be,
// gets no canvas at all; the rest of the window stands as ever.
QSize canvasSize(int width, int height)
{
    const bool paintable = width > 0 && height > 0 && width <= QWIDGETSIZE_MAX && height <= QWIDGETSIZE_MAX
        && qint64(width) * height <= mostPixels;
    return paintable ? QSize(width, height) : QSize(0, 0);
}

QIcon gfxIcon(const char* name) { return QIcon(QString::fromLatin1(":/gfx/gfx/%1.png").arg(QLatin1String(name))); }

} // namespace

void whiteboard::buildWidgets(int width, int height)
{
    const std::optional<QString> server = hostcalls::serverName(ts3Functions, schandler);
    setWindowTitle(server ? QString::fromLatin1("Kelvor - Whiteboard on %1").arg(*server)
                          : QString::fromLatin1("Kelvor - Whiteboard"));

    mainlayout = new QVBoxLayout(this);
    mainlayout->setContentsMargins(0, 0, 0, 0);
    centerlayout = new QHBoxLayout;
    buildActionBar();
    buildToolBar();
    buildCenter(canvasSize(width, height));
    statusbar = new QStatusBar(this);
    // Fixed in height only: fixed in width, too, a status bar is 20 pixels wide, and no error could be read.
    statusbar->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);

    centerlayout->addWidget(toolbar);
    centerlayout->addWidget(splitter);
    mainlayout->addWidget(actionbar);
    mainlayout->addLayout(centerlayout);
    mainlayout->addWidget(statusbar);
    // The scroll area takes up the difference to the picture's size.
    resize(700, 332 + actionbar->height() - 1 + scrollarea->horizontalScrollBar()->height() - 1);
    scene->setFocus(Qt::OtherFocusReason);
}

QAction* whiteboard::addToActionBar(const QIcon& icon, const char* text, void (whiteboard::*slot)(),
                                    Qt::ConnectionType connection)
{
    QAction* action = actionbar->addAction(icon, QString::fromLatin1(text));
    connect(action, &QAction::triggered, this, slot, connection);
    // By the keyboard, too; a click leaves the keyboard with the canvas.
    actionbar->widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void whiteboard::buildActionBar()
{
    // What opens a dialog is called queued: the window may be destroyed while the dialog is open, and the button, which
    // looks at itself after a click, must not stand below on the stack then.
    constexpr auto prompting = Qt::QueuedConnection;
    actionbar = new QToolBar(QString::fromLatin1("Tools"), this);
    coloraction = addToActionBar(QIcon(), "Color", &whiteboard::onColorButtonClicked, prompting);
    showColor();
    actionbar->addSeparator();
    buildThicknessWidgets();
    actionbar->addSeparator();
    addToActionBar(gfxIcon("swaprgb"), "Swap RGB", &whiteboard::onSwapClicked);
    addToActionBar(gfxIcon("invert"), "Invert pixels", &whiteboard::onInvertClicked);
    addToActionBar(gfxIcon("horizontal"), "Flip horizontally", &whiteboard::onFlipHorizontallyClicked);
    addToActionBar(gfxIcon("vertical"), "Flip Vertically", &whiteboard::onFlipVerticallyClicked);
    addToActionBar(gfxIcon("grayscale"), "Grayscale", &whiteboard::onGrayscaleClicked);
    actionbar->addSeparator();
    addToActionBar(gfxIcon("new_file"), "Clear", &whiteboard::onClearButtonClicked);
    actionbar->addSeparator();
    addToActionBar(style()->standardIcon(QStyle::SP_DialogSaveButton), "Save", &whiteboard::onSaveButtonClicked,
                   prompting);
    addToActionBar(gfxIcon("upload"), "Upload", &whiteboard::onUploadButtonClicked, prompting);
    actionbar->addSeparator();
    addToActionBar(style()->standardIcon(QStyle::SP_MessageBoxInformation), "Info", &whiteboard::onAboutButtonClicked,
                   prompting);
}

void whiteboard::buildThicknessWidgets()
{
    const QString toolTip = QString::fromLatin1("Thickness");
    thicknessslider = new QSlider(Qt::Horizontal, actionbar);
    thicknessslider->setRange(1, 2000);
    thicknessslider->setValue(10);
    thicknessslider->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A plain resize would not outlive the tool bar's layout.
    thicknessslider->setFixedWidth(50);
    thicknessslider->setToolTip(toolTip);
    thicknessslider->setAccessibleName(toolTip);
    actionbar->addWidget(thicknessslider);

    thicknessspin = new QDoubleSpinBox(actionbar);
    thicknessspin->setRange(0.1, 200.0);
    thicknessspin->setSingleStep(0.1);
    thicknessspin->setValue(1.0);
    // A value counts once it is typed: after each digit the slider's echo would rewrite the text under the cursor, and
    // 5.5 would come out as 55.
    thicknessspin->setKeyboardTracking(false);
    thicknessspin->setToolTip(toolTip);
    thicknessspin->setAccessibleName(toolTip);
    actionbar->addWidget(thicknessspin);

    connect(thicknessslider, &QSlider::valueChanged, this, &whiteboard::onThicknessSliderChanged);
    connect(thicknessspin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
            &whiteboard::onThicknessSpinChanged);
}

void whiteboard::buildCenter(const QSize& canvas)
{
    splitter = new mysplitter(this);
    splitter->setOpaqueResize(false);
    splitter->setFrameStyle(QFrame::Panel | QFrame::Raised);
    splitter->setLineWidth(2);

    scrollarea = new QScrollArea(splitter);
    scrollarea->setBackgroundRole(QPalette::Dark);
    scene = new paintscene(canvas.width(), canvas.height(), scrollarea);
    scene->setMaximumSize(canvas);
    scene->setAccessibleName(QString::fromLatin1("Picture"));
    scrollarea->setAccessibleName(QString::fromLatin1("Area of the picture"));
    scrollarea->setWidget(scene);
    connect(scene, &paintscene::paintDataAvailable, this, &whiteboard::sendPaintData);
    connect(scene, &paintscene::extendedPaintDataAvailable, this, &whiteboard::sendExtendedPaintData);
    connect(scene, &paintscene::clicked, this, &whiteboard::repairFocus);

    participantlist = new QListWidget(splitter);
    participantlist->setItemDelegate(new participantdelegate(participantlist));
    participantlist->setMinimumWidth(0);
    participantlist->setMaximumWidth(150);
    participantlist->setAccessibleName(QString::fromLatin1("Participants"));

    // Nobody to show: the list starts folded away. A window without a canvas has room for its area all the same.
    if (participants.isEmpty())
        splitter->setSizes({qMax(canvas.width(), 1), 0});
}
