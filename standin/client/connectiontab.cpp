#include "connectiontab.h"

#include "channelview.h"
#include "voiceclient.h"
#include "voiceconnection.h"

#include <QInputDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QTime>
#include <QVBoxLayout>

namespace {

constexpr int longestName = 60;

// A foreign name as it may stand in a line of talk.
QString oneLine(const QString& name) { return name.simplified().left(longestName); }

} // namespace

connectiontab::connectiontab(voiceclient* client, voiceconnection* connection, QWidget* parent)
    : QWidget(parent)
    , client(client)
    , connection(connection)
    , talk(new QPlainTextEdit)
    , input(new QLineEdit)
{
    auto* const view = new channelview(connection);
    auto* const splitter = new QSplitter(Qt::Vertical);
    splitter->addWidget(view);
    splitter->addWidget(talk);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(splitter);
    column->addWidget(input);

    talk->setObjectName(QStringLiteral("talk"));
    talk->setAccessibleName(QStringLiteral("Talk"));
    talk->setReadOnly(true);
    input->setObjectName(QStringLiteral("chatline"));
    input->setAccessibleName(QStringLiteral("Message"));
    input->setPlaceholderText(QStringLiteral("Say something, or type /kelvor open"));
    connect(input, &QLineEdit::returnPressed, this, [this] {
        const QString line = input->text();
        input->clear();
        submit(line);
    });
    connect(view, &channelview::channelChosen, this, &connectiontab::enterChannel);
    followConnection();
}

void connectiontab::addLine(const QString& line)
{
    talk->appendPlainText(QStringLiteral("<%1> %2").arg(QTime::currentTime().toString(QStringLiteral("HH:mm")), line));
}

QStringList connectiontab::lines() const { return talk->toPlainText().split(QLatin1Char('\n')); }

void connectiontab::submit(const QString& line)
{
    if (line.trimmed().isEmpty())
        return;
    if (!line.startsWith(QLatin1Char('/'))) {
        connection->sendChat(line);
        return;
    }
    const QString word = line.mid(1).section(QLatin1Char(' '), 0, 0);
    if (!client->runChatCommand(connection->id(), word, line.mid(word.size() + 2)))
        addLine(QStringLiteral("Nobody here knows the command '%1'.").arg(line));
}

void connectiontab::enterChannel(quint64 channel)
{
    QString password;
    if (connection->voices().channel(channel).hasPassword) {
        bool given = false;
        password = QInputDialog::getText(window(), QStringLiteral("Channel password"),
                                         QStringLiteral("Password for %1:").arg(channelName(channel)),
                                         QLineEdit::Password, QString(), &given);
        if (!given)
            return;
    }
    connection->moveClient(connection->ownID(), channel, password);
}

void connectiontab::followConnection()
{
    connect(connection, &voiceconnection::ready, this, [this] {
        addLine(QStringLiteral("Welcome to %1, %2.").arg(connection->title(), nameOf(connection->ownID())));
        if (!client->keyword().isEmpty())
            addLine(QStringLiteral("To paint: menu Tools, Kelvor, or type /kelvor open"));
    });
    connect(connection, &voiceconnection::noticed, this, &connectiontab::addLine);
    connect(connection, &voiceconnection::chatReceived, this,
            [this](quint16 sender, const QString& text) { addLine(nameOf(sender) + QStringLiteral(": ") + text); });
    connect(connection, &voiceconnection::clientEntered, this, [this](quint16 id, quint64 channel) {
        addLine(QStringLiteral("%1 came to %2.").arg(nameOf(id), channelName(channel)));
    });
    connect(connection, &voiceconnection::clientLeft, this,
            [this](quint16, quint64, bool timedOut, const QString& nickname) {
                addLine(
                    (timedOut ? QStringLiteral("%1 dropped out.") : QStringLiteral("%1 left.")).arg(oneLine(nickname)));
            });
    connect(connection, &voiceconnection::clientMoved, this, [this](quint16 id, quint64, quint64 channel) {
        addLine(QStringLiteral("%1 went to %2.").arg(nameOf(id), channelName(channel)));
    });
    connect(connection, &voiceconnection::clientAway, this, [this](quint16 id, bool away) {
        addLine((away ? QStringLiteral("%1 is away.") : QStringLiteral("%1 is back.")).arg(nameOf(id)));
    });
}

QString connectiontab::nameOf(quint16 id) const { return oneLine(connection->voices().client(id).nickname); }

QString connectiontab::channelName(quint64 channel) const
{
    return oneLine(connection->voices().channel(channel).name);
}
