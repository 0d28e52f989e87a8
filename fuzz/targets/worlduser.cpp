#include "worlduser.h"

#include "canvas/paintscene.h"
#include "clientworld.h"
#include "invitation/invitationdialog.h"
#include "invitation/invitetree.h"
#include "invitation/mytreeitem.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/plugin/exports.h"
#include "whiteboard/whiteboard.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableWidget>

namespace {

// A directory or a channel is entered by a double click, a file is taken by OK, and so is a name for a new one.
void takeFirstRow(ts3filedialog& dialog)
{
    auto* name = dialog.findChild<QLineEdit*>(QString::fromLatin1("filenameedit"));
    if (name->isVisible() && name->isEnabled())
        name->setText(QString::fromLatin1("upload.png"));
    dialog.findChild<QTableWidget*>()->selectRow(0);
    QPushButton* ok = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    if (ok->isEnabled())
        ok->click();
    else
        QMetaObject::invokeMethod(&dialog, "onTableDoubleClicked");
}

// Rows of clients and, with a c in front of the number, of channels.
void selectRows(const invitationdialog& lobby, const QList<QByteArray>& names)
{
    auto* tree = lobby.findChild<invitetree*>();
    tree->clearSelection();
    for (const QByteArray& name : names) {
        mytreeitem* row = name.startsWith('c') ? tree->channelRow(name.mid(1).toULongLong())
                                               : tree->clientRow(static_cast<anyID>(name.toUInt()));
        if (row)
            row->setSelected(true);
    }
}

void click(const invitationdialog& lobby, const char* button)
{
    lobby.findChild<QPushButton*>(QString::fromLatin1(button))->click();
}

} // namespace

void worlduser::act(const QByteArray& record)
{
    const char letter = record.at(0);
    if (letter == 'y')
        return agree();
    if (letter == 'n')
        return refuse();
    if (letter != 'u' || record.size() < 2)
        return;
    const char act = record.at(1);
    QList<QByteArray> parts = record.mid(2).trimmed().split(' ');
    const int connection = parts.takeFirst().toInt();
    world.touch(connection);
    if (act == 'o') {
        ts3plugin_processCommand(world.handler(connection), "open");
    } else if (act == 'g') {
        ts3plugin_configure(nullptr, nullptr);
    } else if (QByteArray("itaclk").contains(act)) {
        if (invitationdialog* lobby = world.lobbyOf(connection))
            actInLobby(act, *lobby, parts);
    } else if (whiteboard* board = world.boardOf(connection)) {
        actOnBoard(act, *board, parts);
    }
}

void worlduser::agree()
{
    QWidget* top = QApplication::activeModalWidget();
    if (auto* box = qobject_cast<QMessageBox*>(top); box && box->button(QMessageBox::Yes))
        box->button(QMessageBox::Yes)->click();
    else if (qobject_cast<ts3downloaddialog*>(top))
        completeTransfer();
    else if (auto* files = qobject_cast<ts3filedialog*>(top))
        takeFirstRow(*files);
    else if (qobject_cast<QFileDialog*>(top))
        refuse(); // nothing outside the world is written
    else if (auto* dialog = qobject_cast<QDialog*>(top))
        dialog->accept();
}

void worlduser::refuse()
{
    if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
        dialog->reject();
}

void worlduser::completeTransfer()
{
    const filerequest last = world.host.requests.isEmpty() ? filerequest() : world.host.requests.last();
    ts3plugin_onFileTransferStatusEvent(last.transferID, ERROR_file_transfer_complete, "", 0, last.schid);
}

void worlduser::actInLobby(char act, invitationdialog& lobby, const QList<QByteArray>& rows)
{
    switch (act) {
    case 'i':
        selectRows(lobby, rows);
        return lobby.invite();
    case 't':
        selectRows(lobby, rows);
        return lobby.takeBack();
    case 'a':
        return lobby.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    case 'l':
        return click(lobby, "loadbutton");
    case 'k':
        return click(lobby, "clearbutton");
    default:
        lobby.close();
    }
}

void worlduser::actOnBoard(char act, whiteboard& board, const QList<QByteArray>& numbers)
{
    auto* canvas = board.findChild<paintscene*>();
    switch (act) {
    case 'w':
        board.close();
        return;
    case 'e':
        return board.reject();
    case 's':
        return canvas->setTool(static_cast<kelvortool>(numbers.value(0).toInt() & 31));
    case 'b':
        if (QAction* action = board.findChildren<QAction*>().value(numbers.value(0).toInt()))
            action->trigger();
        return;
    default:
        actOnCanvas(act, *canvas, numbers);
    }
}

void worlduser::actOnCanvas(char act, paintscene& canvas, const QList<QByteArray>& numbers)
{
    if (act == 'q') {
        const QChar typed(static_cast<uchar>(numbers.value(0).toUInt()));
        QKeyEvent key(QEvent::KeyPress, typed.toUpper().unicode(), Qt::NoModifier, QString(typed));
        QCoreApplication::sendEvent(&canvas, &key);
        return;
    }
    const QEvent::Type type = act == 'd' ? QEvent::MouseButtonPress
        : act == 'm'                     ? QEvent::MouseMove
        : act == 'r'                     ? QEvent::MouseButtonRelease
                                         : QEvent::None;
    if (type == QEvent::None)
        return;
    const QPoint pos(numbers.value(0).toInt(), numbers.value(1).toInt());
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent mouse(type, pos, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&canvas, &mouse);
}
