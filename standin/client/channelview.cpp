#include "channelview.h"

#include "voiceconnection.h"

#include <QHeaderView>
#include <QPainter>

namespace {

constexpr int channelRole = Qt::UserRole;
constexpr int iconSize = 16;

// Clients are discs, channels are sheets; who is away is an open disc.
QIcon drawnIcon(const QColor& color, bool round, bool filled)
{
    QPixmap pixmap(iconSize, iconSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 2));
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
    if (round)
        painter.drawEllipse(3, 3, 10, 10);
    else
        painter.drawRoundedRect(2, 4, 12, 9, 2, 2);
    return QIcon(pixmap);
}

const QColor channelColor(0x3d, 0x7e, 0xa6);
const QColor clientColor(0x3f, 0x9d, 0x63);

} // namespace

channelview::channelview(voiceconnection* connection, QWidget* parent)
    : QTreeWidget(parent)
    , connection(connection)
{
    setObjectName(QStringLiteral("channelview"));
    setAccessibleName(QStringLiteral("Channels"));
    setHeaderHidden(true);
    setExpandsOnDoubleClick(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    rebuildTimer.setSingleShot(true);
    connect(&rebuildTimer, &QTimer::timeout, this, &channelview::rebuild);
    const auto later = [this] { rebuildTimer.start(0); };
    connect(connection, &voiceconnection::ready, this, later);
    connect(connection, &voiceconnection::lost, this, later);
    connect(connection, &voiceconnection::channelAdded, this, later);
    connect(connection, &voiceconnection::channelRemoved, this, later);
    connect(connection, &voiceconnection::channelMoved, this, later);
    connect(connection, &voiceconnection::clientEntered, this, later);
    connect(connection, &voiceconnection::clientLeft, this, later);
    connect(connection, &voiceconnection::clientMoved, this, later);
    connect(connection, &voiceconnection::clientAway, this, later);
    connect(this, &QTreeWidget::itemDoubleClicked, this, &channelview::chooseItem);
}

void channelview::rebuild()
{
    clear();
    rows.clear();
    const voicemodel& voices = connection->voices();
    const QVector<quint64> channels = voices.branch(0);
    for (const quint64 channel : channels)
        rows.insert(channel, addChannel(channel));
    const QList<quint16> clients = voices.clientIDs();
    for (const quint16 id : clients) {
        const voiceclientinfo client = voices.client(id);
        QTreeWidgetItem* const row = rows.value(client.channel);
        if (!row)
            continue;
        // A nickname can be of any length and hold line breaks; a row is one line.
        auto* const entry = new QTreeWidgetItem;
        entry->setText(0, client.nickname.simplified() + (client.away ? QStringLiteral(" (away)") : QString()));
        entry->setIcon(0, drawnIcon(clientColor, true, !client.away));
        QFont font = entry->font(0);
        font.setBold(id == connection->ownID());
        entry->setFont(0, font);
        row->insertChild(row->childCount() - voices.children(client.channel).size(), entry);
    }
    expandAll();
}

QTreeWidgetItem* channelview::addChannel(quint64 id)
{
    const voicechannel channel = connection->voices().channel(id);
    auto* const row = new QTreeWidgetItem;
    row->setText(0, channel.name + (channel.hasPassword ? QStringLiteral(" (password)") : QString()));
    row->setIcon(0, drawnIcon(channelColor, false, !channel.hasPassword));
    row->setData(0, channelRole, id);
    if (QTreeWidgetItem* const parentRow = rows.value(channel.parent))
        parentRow->addChild(row);
    else
        addTopLevelItem(row);
    return row;
}

void channelview::chooseItem(QTreeWidgetItem* item)
{
    if (const quint64 channel = item->data(0, channelRole).toULongLong())
        emit channelChosen(channel);
}
