#include "invitationdialog.h"

#include "brushes/picturefile.h"
#include "hostapi/hostcalls.h"
#include "lobbystate.h"
#include "mytreeitem.h"
#include "prompts/heldwindow.h"
#include "protocol/kelvorprotocol.h"
#include "protocol/zeroended.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QMenu>
#include <QStatusBar>
#include <QStyle>

namespace {

constexpr int smallestSize = 200;
constexpr int largestSize = 2000;
constexpr int legendMark = 8; ///< pixels
constexpr int legendSpacing = 4; ///< pixels, more between the entries

struct legendentry {
    QColor color;
    const char* text;
};

} // namespace

invitationdialog::invitationdialog(anyID host, kelvorprotocol* protocol, const TS3Functions& functions,
                                   uint64 schandler, const QString& downloadDir, int width, int height, QWidget* parent)
    : QDialog(parent)
    , host(host)
    , protocol(protocol)
    , ts3Functions(functions)
    , schandler(schandler)
    , downloadDir(downloadDir)
{
    setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QString::fromLatin1("Invite to kelvor"));
    people = std::make_unique<lobbystate>(protocol, ts3Functions, schandler, tree);

    loadbutton->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    clearbutton->setIcon(QIcon(QString::fromLatin1(":/gfx/gfx/clear.png")));
    connect(loadbutton, &QPushButton::clicked, this, &invitationdialog::onLoadButtonClicked);
    connect(clearbutton, &QPushButton::clicked, this, &invitationdialog::onClearButtonClicked);
    imagebgcheckbox->setEnabled(false);

    auto* validator = new QIntValidator(smallestSize, largestSize, this);
    widthedit->setValidator(validator);
    heightedit->setValidator(validator);
    widthedit->setText(QString::number(width));
    heightedit->setText(QString::number(height));

    makeLegend();
    if (host != 0)
        disableInput();
    else
        makeMenu();
    buildTree();
    connect(this, &QDialog::finished, this, &invitationdialog::dialogFinished);
    treeReady = true;
}

invitationdialog::~invitationdialog() = default;

void invitationdialog::makeLegend()
{
    const legendentry entries[] = {
        {QColor(Qt::yellow), "= Invited"}, {QColor(QString::fromLatin1("green")), "= Accepted"},
        {QColor(Qt::red), "= Rejected"},   {QColor(Qt::black), "= You"},
        {QColor(217, 113, 1), "= Host"},
    };
    auto* legend = new QWidget(this);
    auto* layout = new QHBoxLayout(legend);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(legendSpacing);
    for (const legendentry& entry : entries) {
        QPixmap mark(legendMark, legendMark);
        mark.fill(entry.color);
        if (layout->count() > 0)
            layout->addSpacing(legendSpacing);
        auto* markLabel = new QLabel(legend);
        markLabel->setPixmap(mark);
        // A line in the colour of the text: no mark sinks into its background, whatever the user's colours are.
        markLabel->setFrameShape(QFrame::Box);
        layout->addWidget(markLabel, 0, Qt::AlignVCenter);
        layout->addWidget(new QLabel(QString::fromLatin1(entry.text), legend));
    }
    legendBar = new QStatusBar(this);
    legendBar->setSizeGripEnabled(false);
    legendBar->addWidget(legend);
    verticalLayout->addWidget(legendBar);
}

void invitationdialog::makeMenu()
{
    contextMenu = new QMenu(this);
    inviteAction = contextMenu->addAction(QString::fromLatin1("Invite"), this, &invitationdialog::invite);
    takeBackAction =
        contextMenu->addAction(QString::fromLatin1("Take back invitation"), this, &invitationdialog::takeBack);
    connect(tree, &QWidget::customContextMenuRequested, this, &invitationdialog::onTreeContextMenu);
    connect(tree, &QTreeWidget::doubleClicked, this, &invitationdialog::invite);
}

// A guest waits; its only way out is to close the window.
void invitationdialog::disableInput()
{
    buttonBox->setEnabled(false);
    loadbutton->setEnabled(false);
    clearbutton->setEnabled(false);
    widthedit->setEnabled(false);
    heightedit->setEnabled(false);
}

void invitationdialog::buildTree()
{
    tree->setConnection(ts3Functions, schandler);
    tree->buildChannels();
    const std::optional<QList<anyID>> clients = tree->buildClients(host);
    if (host == 0 && clients)
        protocol->sendPing(schandler, zeroEnded(*clients).constData());
    tree->expandAll();
}

int invitationdialog::imageWidth() const { return widthedit->text().toInt(); }

int invitationdialog::imageHeight() const { return heightedit->text().toInt(); }

bool invitationdialog::asBackground() const { return imagebgcheckbox->isChecked(); }

const invitees& invitationdialog::lists() const { return people->lists(); }

const mytreeitem* invitationdialog::clientRow(anyID client) const { return tree->clientRow(client); }

const mytreeitem* invitationdialog::channelRow(uint64 channel) const { return tree->channelRow(channel); }

// The end is told once. What arrives until the object is destroyed no longer concerns it, although its connections
// still stand: on a guest that can take as long as the download of the session's picture.
void invitationdialog::dialogFinished(int ret)
{
    if (ended)
        return;
    ended = true;
    if (fileDialog)
        fileDialog->reject();
    emit inviteFinished(ret, schandler);
}

// The file dialog and the transfer run nested event loops, in which this dialog may end or be destroyed. What they are
// given and give is kept on the stack for that long.
void invitationdialog::onLoadButtonClicked()
{
    if (fileDialog)
        return;
    const QPointer<invitationdialog> self(this);
    const heldwindow<ts3filedialog> held(new ts3filedialog(ts3Functions, schandler, this));
    fileDialog = held.get();
    connect(this, &invitationdialog::fileList, fileDialog, &ts3filedialog::onFileList);
    uint64 chosenChannel = 0;
    QString password;
    QString path;
    uint64 size = 0;
    const bool chosen = held->getOpenFile(&chosenChannel, &password, &path, &size);
    if (self && chosen) {
        imageChannel = chosenChannel;
        imagePassword = password;
        imagePath = path;
        imageSize = size;
        fetchPicture();
    }
    if (self)
        fileDialog = nullptr;
}

void invitationdialog::fetchPicture()
{
    const QPointer<invitationdialog> self(this);
    const QString password = imagePassword;
    const QString path = imagePath;
    const QString directory = downloadDir;
    unsigned int error = ERROR_ok;
    const QString file =
        download(ts3Functions, schandler, imageChannel, password, path, imageSize, &error, directory, this);
    if (!self || ended)
        return;
    imageFile = file;
    if (imageFile.isEmpty())
        dropPicture(error);
    else
        takePicture();
}

// A file that is no picture is taken all the same: both edits then show 0.
void invitationdialog::takePicture()
{
    const QImage picture = readPicture(imageFile);
    widthedit->setText(QString::number(picture.width()));
    heightedit->setText(QString::number(picture.height()));
    urllabel->setText(imagePath);
    sizelabel->setEnabled(false);
    widthedit->setEnabled(false);
    heightedit->setEnabled(false);
    imagebgcheckbox->setEnabled(true);
    // An error of an earlier picture makes room for the legend again.
    legendBar->clearMessage();
}

void invitationdialog::dropPicture(unsigned int error)
{
    legendBar->showMessage(hostcalls::errorText(ts3Functions, error));
    imageChannel = 0;
    imageSize = 0;
    imagePassword.clear();
    imagePath.clear();
}

// The edits go on showing the picture's size, and the downloaded file stays on the disk.
void invitationdialog::onClearButtonClicked()
{
    imageChannel = 0;
    imageSize = 0;
    imagePassword.clear();
    imagePath.clear();
    imageFile.clear();
    urllabel->clear();
    sizelabel->setEnabled(true);
    widthedit->setEnabled(true);
    heightedit->setEnabled(true);
    imagebgcheckbox->setEnabled(false);
    legendBar->clearMessage();
}

// "Invite" is offered for fresh rows only. A client that refused can be invited again by a double click, which goes
// straight to invite(): that takes some intent, a menu over many rows does not.
void invitationdialog::onTreeContextMenu(QPoint pos)
{
    const QList<rowname> names = tree->selectedRows();
    if (names.isEmpty())
        return;
    bool canInvite = false;
    bool canTakeBack = false;
    for (const rowname& name : names) {
        const mytreeitem* row = tree->row(name);
        const invitestate state = row ? row->inviteState() : invitestate::invite_self;
        canInvite = canInvite || state == invitestate::invite_none;
        canTakeBack = canTakeBack || state == invitestate::invite_invited || state == invitestate::invite_accepted;
        if (canInvite && canTakeBack)
            break;
    }
    inviteAction->setEnabled(canInvite);
    takeBackAction->setEnabled(canTakeBack);
    contextMenu->popup(tree->mapToGlobal(pos));
}
