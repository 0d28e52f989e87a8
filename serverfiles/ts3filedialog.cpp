#include "ts3filedialog.h"

#include "filetexts.h"
#include "hostapi/hostcalls.h"
#include "mytableitem.h"
#include "namedelegate.h"
#include "prompts/prompts.h"

#include <QHeaderView>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>

namespace {

enum column : int { nameColumn, sizeColumn, typeColumn, dateColumn };

QString iconPath(const char* name) { return QString::fromLatin1(":/gfx/gfx/%1.png").arg(QLatin1String(name)); }

// Every item in the first column is a mytableitem.
const mytableitem& rowItem(const QTableWidget& table, int row)
{
    return static_cast<const mytableitem&>(*table.item(row, nameColumn));
}

// Directories before files, each by name; channels have no type and come last.
bool goesBefore(const mytableitem& a, const mytableitem& b)
{
    const auto typeOrder = [](const mytableitem& item) {
        return item.kind() == mytableitem::channelKind ? mytableitem::fileKind + 1 : item.kind();
    };
    return typeOrder(a) != typeOrder(b) ? typeOrder(a) < typeOrder(b) : a < b;
}

} // namespace

ts3filedialog::ts3filedialog(const TS3Functions& functions, uint64 schandler, QWidget* parent)
    : QDialog(parent)
    , functions(functions)
    , schandler(schandler)
    , statusbar(new QStatusBar(this))
    , openChannelIcon(iconPath("channel_green"))
    , passwordedChannelIcon(iconPath("channel_invited"))
    , directoryIcon(iconPath("directory"))
    , fileIcon(iconPath("new_file"))
{
    setupUi(this);
    setWindowTitle(QString::fromLatin1("Load image"));
    table->setItemDelegateForColumn(nameColumn, new namedelegate(table));
    QHeaderView* const header = table->horizontalHeader();
    header->setSectionResizeMode(QHeaderView::ResizeToContents);
    header->setSectionResizeMode(typeColumn, QHeaderView::Stretch);
    // A long name would squeeze the stretched column until its texts are cut off.
    header->setMinimumSectionSize(header->fontMetrics().horizontalAdvance(QString::fromLatin1("  Directory  ")));
    verticalLayout->addWidget(statusbar);
    setAcceptable(false);
    connectWidgets();
}

void ts3filedialog::connectWidgets()
{
    connect(upbutton, &QPushButton::clicked, this, &ts3filedialog::onUpButtonClicked);
    connect(refreshbutton, &QPushButton::clicked, this, &ts3filedialog::updateTable);
    connect(filenameedit, &QLineEdit::textChanged, this, &ts3filedialog::onFilenameEditChanged);
    // Queued: the slot may ask for a password, and when the dialog is destroyed meanwhile, the table may not stand
    // below on the stack, for it looks at itself after the signal.
    connect(table, &QTableWidget::doubleClicked, this, &ts3filedialog::onTableDoubleClicked, Qt::QueuedConnection);
    connect(table, &QTableWidget::itemSelectionChanged, this, &ts3filedialog::onTableSelectionChanged);
    connect(buttonBox, &QDialogButtonBox::accepted, this, &ts3filedialog::accept);
    connect(buttonBox, &QDialogButtonBox::rejected, this, &ts3filedialog::reject);
}

bool ts3filedialog::getOpenFile(uint64* channel, QString* password, QString* path, uint64* size)
{
    filenamelabel->hide();
    filenameedit->hide();
    if (!run())
        return false;
    const QList<QTableWidgetItem*> selected = table->selectedItems();
    for (const QTableWidgetItem* item : selected) {
        if (item->column() != nameColumn)
            continue;
        const QTableWidgetItem* sizeItem = table->item(item->row(), sizeColumn);
        *channel = this->channel;
        *password = this->password;
        *path = pathOf(item->text());
        *size = sizeItem ? sizeItem->data(Qt::UserRole).toULongLong() : 0;
        return true;
    }
    return false;
}

bool ts3filedialog::getSaveFile(uint64* channel, QString* password, QString* path, QString* filename)
{
    if (!run())
        return false;
    *channel = this->channel;
    *password = this->password;
    *path = this->path;
    *filename = filenameedit->text();
    return true;
}

// False as well when the dialog does not live any more; then nothing of it may be touched.
bool ts3filedialog::run()
{
    const QPointer<ts3filedialog> self(this);
    updateTable();
    return exec() == QDialog::Accepted && self;
}

void ts3filedialog::updateTable()
{
    filenameedit->setEnabled(channel != 0);
    if (channel == 0) {
        table->setRowCount(0);
        listChannels();
        return;
    }
    const unsigned int result = functions.requestFileList(schandler, channel, password.toLatin1().constData(),
                                                          path.toLatin1().constData(), nullptr);
    if (result == ERROR_ok)
        table->setRowCount(0);
    else
        statusbar->showMessage(hostcalls::errorText(functions, result));
}

void ts3filedialog::listChannels()
{
    const QList<uint64> channels = hostcalls::channels(functions, schandler).value_or(QList<uint64>());
    for (const uint64 id : channels) {
        const QString name = hostcalls::channelName(functions, schandler, id)
                                 .value_or(QString::fromLatin1("ERROR getting channel name"));
        auto* const item = new mytableitem(name, mytableitem::channelKind, id);
        item->setPassworded(hostcalls::channelHasPassword(functions, schandler, id));
        item->setIcon(item->passworded() ? passwordedChannelIcon : openChannelIcon);
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, nameColumn, item);
    }
}

void ts3filedialog::onFileList(uint64 schandler, uint64 channelID, QString path, QString name, uint64 size,
                               uint64 datetime, int type)
{
    if (schandler != this->schandler || channelID != channel || path != this->path)
        return;
    const bool directory = type == FileListType_Directory;
    if (!directory && (saving() || !filetexts::isPicture(name)))
        return;
    auto* const item = new mytableitem(name, directory ? mytableitem::directoryKind : mytableitem::fileKind, 0);
    item->setIcon(directory ? directoryIcon : fileIcon);
    auto* const sizeItem = new QTableWidgetItem(directory ? QString() : filetexts::sizeText(size));
    if (!directory)
        sizeItem->setData(Qt::UserRole, QVariant::fromValue<qulonglong>(size));
    const int row = placeOf(*item);
    table->insertRow(row);
    setCell(row, nameColumn, item);
    setCell(row, sizeColumn, sizeItem);
    setCell(row, typeColumn, new QTableWidgetItem(QString::fromLatin1(directory ? "Directory" : "File")));
    setCell(row, dateColumn, new QTableWidgetItem(filetexts::dateText(datetime)));
    sortChannelsBehind();
}

// The item keeps the size that its text needs: for each batch of rows that arrives, the header asks all items for it,
// and laying out as many texts anew takes most of the time of a long directory.
void ts3filedialog::setCell(int row, int column, QTableWidgetItem* item)
{
    table->setItem(row, column, item);
    item->setSizeHint(table->sizeHintForIndex(table->model()->index(row, column)));
}

// Where a new last row would go by sorting by name and then, keeping that order, by type. Sorting all rows at each new
// one gives the same table, but takes the window away in a long directory.
int ts3filedialog::placeOf(const mytableitem& item) const
{
    int first = 0;
    int behind = table->rowCount();
    while (first < behind) {
        const int middle = first + (behind - first) / 2;
        if (goesBefore(item, rowItem(*table, middle)))
            behind = middle;
        else
            first = middle + 1;
    }
    return first;
}

// After a cancelled password prompt the channels are still shown while a directory is browsed already.
void ts3filedialog::sortChannelsBehind()
{
    if (rowItem(*table, table->rowCount() - 1).kind() != mytableitem::channelKind)
        return;
    table->sortItems(nameColumn);
    table->sortItems(typeColumn);
}

void ts3filedialog::onUpButtonClicked()
{
    // The slash is kept on purpose, so that the button stops working below a second level: from "/a/b" it leads to
    // "/a/" and stays there.
    if (path == QLatin1String("/"))
        channel = 0;
    else
        path.truncate(path.lastIndexOf(QLatin1Char('/')) + 1);
    updateTable();
    if (path == QLatin1String("/") && channel == 0)
        upbutton->setEnabled(false);
}

// The button is wired to updateTable() itself; the slot is part of the dialog's declared interface.
void ts3filedialog::onRefreshButtonClicked() { }

void ts3filedialog::onTableDoubleClicked()
{
    // Two double clicks may have come before the first of them was answered by a prompt.
    if (findChild<QDialog*>())
        return;
    const QList<QTableWidgetItem*> selected = table->selectedItems();
    for (const QTableWidgetItem* item : selected) {
        const auto* const row = dynamic_cast<const mytableitem*>(item);
        if (!row)
            continue;
        if (row->kind() == mytableitem::channelKind)
            enterChannel(*row);
        else if (row->kind() == mytableitem::directoryKind)
            enterDirectory(row->text());
        else
            accept();
        return;
    }
}

void ts3filedialog::enterChannel(const mytableitem& row)
{
    channel = row.id();
    password.clear();
    path = QString::fromLatin1("/");
    // A cancelled prompt leaves the channel set while the table shows the channels, which the refresh button shows.
    if (row.passworded()) {
        const std::optional<QString> typed =
            prompts::askText(this, QString::fromLatin1("Type in password"),
                             QString::fromLatin1("Password for %1:").arg(row.text()), QLineEdit::Normal);
        // Cancelled, or gone together with this dialog.
        if (!typed)
            return;
        password = *typed;
    }
    upbutton->setEnabled(true);
    updateTable();
}

void ts3filedialog::enterDirectory(const QString& name)
{
    path = pathOf(name);
    updateTable();
}

QString ts3filedialog::pathOf(const QString& name) const
{
    return path == QLatin1String("/") ? path + name : path + QLatin1Char('/') + name;
}

void ts3filedialog::onTableSelectionChanged()
{
    const QList<QTableWidgetItem*> selected = table->selectedItems();
    for (const QTableWidgetItem* item : selected) {
        if (item->column() != typeColumn || item->text() != QLatin1String("File"))
            continue;
        setAcceptable(!saving() || !filenameedit->text().isEmpty());
        return;
    }
    setAcceptable(false);
}

void ts3filedialog::onFilenameEditChanged(QString newtext) { setAcceptable(!newtext.isEmpty()); }

bool ts3filedialog::saving() const { return !filenameedit->isHidden(); }

void ts3filedialog::setAcceptable(bool acceptable) { buttonBox->button(QDialogButtonBox::Ok)->setEnabled(acceptable); }
