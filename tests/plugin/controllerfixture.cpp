#include "controllerfixture.h"

#include "invitation/invitationdialog.h"
#include "whiteboard/whiteboard.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTimer>

namespace {

template <typename Window> QList<Window*> visibleWindows()
{
    QList<Window*> found;
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* widget : widgets) {
        if (auto* window = qobject_cast<Window*>(widget); window && window->isVisible())
            found.append(window);
    }
    return found;
}

} // namespace

controllerfixture::controllerfixture()
{
    QDir(directory.path()).mkdir(QString::fromLatin1("plugins"));
    host.configPath = QFile::encodeName(directory.path()) + '/';
    host.pluginPath = QFile::encodeName(directory.path()) + "/plugins/";
    for (uint64 schid : {1, 2}) {
        fakeserver& server = host.addServer(schid);
        server.name = "Server " + QByteArray::number(static_cast<int>(schid));
        server.addClient(2, "Ann");
        server.addClient(3, "Ben");
        server.addClient(4, "Eve");
    }
}

void controllerfixture::writeSetting(const char* key, const QVariant& value)
{
    QSettings file(directory.filePath(QString::fromLatin1("kelvor.conf")), QSettings::IniFormat);
    file.setValue(QString::fromLatin1(key), value);
}

void controllerfixture::start()
{
    controller = std::make_unique<kelvor>(host.table());
    controller->setPluginCommandID("id");
}

void controllerfixture::receive(const QByteArray& text, uint64 schid)
{
    controller->handlePluginCommand(schid, QString::fromLatin1("kelvor"), text.constData());
}

void controllerfixture::duringNextQuestion(const std::function<void()>& act)
{
    auto* watch = new QTimer(qApp);
    QObject::connect(watch, &QTimer::timeout, watch, [this, watch, act] {
        const QList<QMessageBox*> open = questions();
        if (open.isEmpty())
            return;
        watch->stop();
        watch->deleteLater();
        question = open.last()->text();
        act();
    });
    watch->start(1);
}

void controllerfixture::answerNext(QMessageBox::StandardButton button)
{
    duringNextQuestion([button] {
        QMessageBox* box = questions().last();
        if (button == QMessageBox::NoButton)
            box->close();
        else
            box->button(button)->click();
    });
}

void controllerfixture::acceptInvitation(uint64 schid)
{
    host.currentConnection = schid;
    answerNext(QMessageBox::Yes);
    receive(inviteFromAnn, schid);
}

QList<QMessageBox*> controllerfixture::questions() { return visibleWindows<QMessageBox>(); }

QList<invitationdialog*> controllerfixture::lobbies() { return visibleWindows<invitationdialog>(); }

QList<whiteboard*> controllerfixture::boards() { return visibleWindows<whiteboard>(); }

void controllerfixture::settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
