#include "clienthouse.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QMetaObject>
#include <QTreeWidget>

namespace {

bool isOf(const QObject* object, const char* className)
{
    return qstrcmp(object->metaObject()->className(), className) == 0;
}

} // namespace

clienthouse::clienthouse(const std::vector<int>& others, const QSize& canvas)
{
    const QByteArray path = QFile::encodeName(directory.path()) + '/';
    QFile settings(directory.filePath(QString::fromLatin1("kelvor.conf")));
    if (!settings.open(QIODevice::WriteOnly))
        qFatal("no settings can be written to %s", path.constData());
    settings.write("[General]\ndownloaddir=" + path + "\ndefaultwidth=" + QByteArray::number(canvas.width())
                   + "\ndefaultheight=" + QByteArray::number(canvas.height()) + '\n');
    host.configPath = path;
    host.pluginPath = path;
    for (std::size_t i = 0; i < others.size(); ++i)
        addServer(i + 1, others[i]);
    mainWindow.show();
    settle();
}

clienthouse::~clienthouse() { settle(); }

void clienthouse::addServer(uint64 connection, int others)
{
    fakeserver& server = host.addServer(connection);
    for (int i = 0; i < others; ++i) {
        const uint64 channel = 2 + static_cast<uint64>(i / channelSize);
        if (i % channelSize == 0)
            server.addChannel(channel, "Channel " + QByteArray::number(static_cast<int>(channel)));
        server.addClient(static_cast<anyID>(i + 2), "Client " + QByteArray::number(i + 2), channel);
    }
}

QDialog* clienthouse::window(const char* className)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (isOf(widget, className) && widget->isVisible())
            return static_cast<QDialog*>(widget);
    }
    return nullptr;
}

QWidget* clienthouse::child(const char* windowClass, const char* childClass)
{
    const QList<QWidget*> children = window(windowClass)->findChildren<QWidget*>();
    for (QWidget* widget : children) {
        if (isOf(widget, childClass))
            return widget;
    }
    return nullptr;
}

void clienthouse::inviteAll()
{
    QDialog* const lobby = window("invitationdialog");
    auto* const tree = lobby->findChild<QTreeWidget*>();
    tree->clearSelection();
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        tree->topLevelItem(i)->setSelected(true);
    // By name, since the class may be the loaded library's.
    if (!QMetaObject::invokeMethod(lobby, "invite"))
        qFatal("the lobby cannot invite");
}

void clienthouse::settle()
{
    QApplication::processEvents();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QByteArray clienthouse::message(char kind, int sender)
{
    return QByteArray(1, kind) + ' ' + QByteArray::number(sender);
}
