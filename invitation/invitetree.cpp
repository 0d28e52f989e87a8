#include "invitetree.h"

#include "hostapi/hostcalls.h"
#include "mytreeitem.h"
#include "prompts/plainline.h"

#include <QKeyEvent>

namespace {

// No client is known under it when the own id can't be had.
constexpr anyID nobody = 65535;
// Far beyond what the voice server lets anybody be called; a longer name would only cost time at each repaint.
constexpr int longestName = 500;

// A name as a row can show it, on one line.
QString shownName(const QString& name) { return plainLine(name.left(longestName), longestName); }

// The row and all below it, each parent before its children.
QList<QTreeWidgetItem*> branchOf(QTreeWidgetItem* row)
{
    QList<QTreeWidgetItem*> branch{row};
    for (int i = 0; i < branch.size(); ++i) {
        QTreeWidgetItem* const parent = branch.at(i);
        for (int child = 0; child < parent->childCount(); ++child)
            branch.append(parent->child(child));
    }
    return branch;
}

bool isInBranch(const QTreeWidgetItem* row, const QTreeWidgetItem* top)
{
    while (row && row != top)
        row = row->parent();
    return row != nullptr;
}

rowname nameOf(const QTreeWidgetItem* item)
{
    const auto* row = static_cast<const mytreeitem*>(item);
    return {row->isChannel(), row->channelID(), row->clientID()};
}

} // namespace

invitetree::invitetree(QWidget* parent)
    : QTreeWidget(parent)
{
    setUniformRowHeights(true);
    setExpandsOnDoubleClick(false);
}

invitetree::~invitetree()
{
    for (mytreeitem* row : qAsConst(clientItems)) {
        if (row && !row->treeWidget())
            delete row;
    }
}

void invitetree::setConnection(const TS3Functions& table, uint64 connection)
{
    functions = &table;
    schandler = connection;
}

void invitetree::buildChannels()
{
    const std::optional<QList<uint64>> channels = hostcalls::channels(*functions, schandler);
    for (const uint64 channel : channels.value_or(QList<uint64>())) {
        if (channelRow(channel))
            continue;
        mytreeitem* const row = newChannelRow(channel);
        uint64 order = 0;
        if (functions->getChannelVariableAsUInt64(schandler, channel, CHANNEL_ORDER, &order) == ERROR_ok)
            row->setChannelOrder(order);
        uint64 parent = 0;
        mytreeitem* parentRow = nullptr;
        if (functions->getParentChannelOfChannel(schandler, channel, &parent) == ERROR_ok)
            parentRow = channelRow(parent);
        if (parentRow) {
            row->setParentChannel(parent);
            parentRow->addChild(row);
        } else {
            addTopLevelItem(row);
        }
        channelItems.insert(channel, row);
    }
}

std::optional<QList<anyID>> invitetree::buildClients(anyID host)
{
    const anyID own = hostcalls::ownClientID(*functions, schandler).value_or(nobody);
    const std::optional<QList<anyID>> clients = hostcalls::clients(*functions, schandler);
    for (const anyID client : clients.value_or(QList<anyID>())) {
        if (clientRow(client))
            continue;
        mytreeitem* const row = newClientRow(client);
        clientItems.insert(client, row);
        uint64 channel = 0;
        if (functions->getChannelOfClient(schandler, client, &channel) != ERROR_ok)
            addTopLevelItem(row);
        else if (mytreeitem* const parent = channelRow(channel))
            parent->addChild(row);
        if (client == own)
            row->setState(invitestate::invite_self);
        else if (client == host)
            row->setState(invitestate::invite_host);
    }
    return clients;
}

mytreeitem* invitetree::row(const rowname& name) const
{
    return name.isChannel ? channelRow(name.channel) : clientRow(name.client);
}

QList<rowname> invitetree::selectedRows() const
{
    QList<rowname> names;
    const QList<QTreeWidgetItem*> rows = selectedItems();
    for (const QTreeWidgetItem* row : rows)
        names.append(nameOf(row));
    return names;
}

QList<rowname> invitetree::rowsBelow(uint64 channel) const
{
    QList<rowname> names;
    const mytreeitem* const parent = channelRow(channel);
    for (int i = 0; parent && i < parent->childCount(); ++i)
        names.append(nameOf(parent->child(i)));
    return names;
}

void invitetree::setClientState(anyID client, invitestate state)
{
    if (mytreeitem* const row = clientRow(client))
        row->setState(state);
}

void invitetree::setChannelState(uint64 channel, invitestate state)
{
    if (mytreeitem* const row = channelRow(channel))
        row->setState(state);
}

void invitetree::setHasPlugin(anyID client)
{
    if (mytreeitem* const row = clientRow(client))
        row->setHasPlugin();
}

// A client that is reported twice keeps its row with its state, which the lists go by; it only takes its new place.
void invitetree::addClient(anyID client, uint64 channel)
{
    mytreeitem* row = clientRow(client);
    if (row)
        nameClient(row);
    else
        row = newClientRow(client);
    clientItems.insert(client, row);
    put(row, channelRow(channel));
}

void invitetree::moveClient(anyID client, uint64 oldChannel, uint64 newChannel)
{
    mytreeitem* const row = clientRow(client);
    mytreeitem* const parent = channelRow(newChannel);
    if (row && parent && channelRow(oldChannel))
        put(row, parent);
}

void invitetree::removeClient(anyID client) { delete clientItems.take(client); }

void invitetree::addChannel(uint64 channel, uint64 parent)
{
    mytreeitem* row = channelRow(channel);
    if (row) {
        nameChannel(row);
        moveChannel(channel, parent);
        return;
    }
    row = newChannelRow(channel);
    put(row, channelRow(parent));
    channelItems.insert(channel, row);
}

// A late or hostile event can name the channel itself or one below it as the new parent: a ring that no tree can show.
void invitetree::moveChannel(uint64 channel, uint64 newParent)
{
    mytreeitem* const row = channelRow(channel);
    mytreeitem* const parent = channelRow(newParent);
    if (row && parent && !isInBranch(parent, row))
        put(row, parent);
}

void invitetree::removeChannel(uint64 channel)
{
    if (mytreeitem* const top = channelRow(channel)) {
        const QList<QTreeWidgetItem*> branch = branchOf(top);
        for (const QTreeWidgetItem* item : branch) {
            const rowname name = nameOf(item);
            if (name.isChannel)
                channelItems.insert(name.channel, nullptr);
            else
                clientItems.insert(name.client, nullptr);
        }
        delete top;
    }
    channelItems.remove(channel);
}

// Enter would go on to the dialog and press OK, which starts the session for good.
void invitetree::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->accept();
    else
        QTreeWidget::keyPressEvent(event);
}

mytreeitem* invitetree::newClientRow(anyID client)
{
    auto* row = new mytreeitem(client, looks);
    nameClient(row);
    return row;
}

mytreeitem* invitetree::newChannelRow(uint64 channel)
{
    auto* row = new mytreeitem(channel, looks);
    nameChannel(row);
    return row;
}

void invitetree::nameClient(mytreeitem* row) const
{
    const std::optional<QString> name = hostcalls::clientText(*functions, schandler, row->clientID(), CLIENT_NICKNAME);
    row->setText(0, name ? shownName(*name) : QString::fromLatin1("ERROR getting nickname"));
}

void invitetree::nameChannel(mytreeitem* row) const
{
    const std::optional<QString> name = hostcalls::channelName(*functions, schandler, row->channelID());
    row->setText(0, name ? shownName(*name) : QString::fromLatin1("ERROR getting channel name"));
}

// A row that is taken out and put in loses what the view knew of it and of all below it, so that is set again. A
// channel that was empty opens for its first row: the user can't have closed it. All this goes through the view: the
// items' own operations of these names are inline before Qt 5.14 and functions of the toolkit since.
void invitetree::put(mytreeitem* row, mytreeitem* parent)
{
    QList<QTreeWidgetItem*> open;
    QList<QTreeWidgetItem*> selected;
    QTreeWidgetItem* current = nullptr;
    const QList<QTreeWidgetItem*> branch = branchOf(row);
    for (QTreeWidgetItem* item : branch) {
        const QModelIndex index = indexFromItem(item);
        if (isExpanded(index))
            open.append(item);
        if (selectionModel()->isSelected(index))
            selected.append(item);
        if (item == currentItem())
            current = item;
    }
    take(row);
    if (!parent)
        addTopLevelItem(row);
    else if (parent->addChild(row); parent->childCount() == 1)
        open.append(parent);
    for (QTreeWidgetItem* item : qAsConst(open))
        expandItem(item);
    for (QTreeWidgetItem* item : qAsConst(selected))
        selectionModel()->select(indexFromItem(item), QItemSelectionModel::Select | QItemSelectionModel::Rows);
    if (current)
        setCurrentItem(current, 0, QItemSelectionModel::NoUpdate);
}

void invitetree::take(QTreeWidgetItem* row)
{
    if (QTreeWidgetItem* const parent = row->parent())
        parent->removeChild(row);
    else if (row->treeWidget())
        takeTopLevelItem(indexOfTopLevelItem(row));
}
