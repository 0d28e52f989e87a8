#include "windowparts.h"

#include "canvas/paintscene.h"
#include "serverfiles/ts3filedialog.h"
#include "sessionfixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>

namespace {

int warnings = 0;
QtMessageHandler handlerBefore = nullptr;

void countWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    // The last is what the offscreen platform says of every window.
    if ((type == QtWarningMsg || type == QtCriticalMsg) && !text.contains(QLatin1String("propagateSizeHints")))
        ++warnings;
    handlerBefore(type, context, text);
}

// A double click on a row as far as the dialog hears of it, which it does by a queued call.
void enterRow(QTableWidget* table, int row)
{
    table->selectRow(row);
    emit table->doubleClicked(table->model()->index(row, 0));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

} // namespace

QToolBar* actionBar(whiteboard* window) { return window->findChildren<QToolBar*>().at(0); }

QToolBar* toolBar(whiteboard* window) { return window->findChildren<QToolBar*>().at(1); }

QList<QToolButton*> toolButtons(whiteboard* window)
{
    QList<QToolButton*> buttons;
    const QList<QAction*> actions = toolBar(window)->actions();
    for (QAction* entry : actions)
        buttons.append(qobject_cast<QToolButton*>(toolBar(window)->widgetForAction(entry)));
    return buttons;
}

QToolButton* toolButton(whiteboard* window, const QByteArray& toolTip)
{
    const QList<QToolButton*> buttons = toolButtons(window);
    for (QToolButton* button : buttons) {
        if (button->toolTip().startsWith(QLatin1String(toolTip)))
            return button;
    }
    return nullptr;
}

QAction* action(whiteboard* window, const QByteArray& text)
{
    const QList<QAction*> actions = actionBar(window)->actions();
    for (QAction* entry : actions) {
        if (entry->text() == QLatin1String(text))
            return entry;
    }
    return nullptr;
}

void click(whiteboard* window, const QByteArray& text)
{
    QTest::mouseClick(actionBar(window)->widgetForAction(action(window, text)), Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
}

QStringList rows(whiteboard* window)
{
    const auto* list = window->findChild<QListWidget*>();
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    return texts;
}

QIcon rowIcon(whiteboard* window, int row) { return window->findChild<QListWidget*>()->item(row)->icon(); }

bool isIcon(const QIcon& icon, const char* path)
{
    return icon.pixmap(16).toImage() == QIcon(QLatin1String(path)).pixmap(16).toImage();
}

bool isWhite(whiteboard* window)
{
    QImage white(300, 200, QImage::Format_ARGB32);
    white.fill(Qt::white);
    return canvasOf(window)->picture() == white;
}

void drag(whiteboard* window)
{
    QWidget* canvas = canvasOf(window);
    QTest::mousePress(canvas, Qt::LeftButton, Qt::NoModifier, {40, 40});
    QMouseEvent move(QEvent::MouseMove, QPointF(60, 50), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(canvas, &move);
    QTest::mouseRelease(canvas, Qt::LeftButton, Qt::NoModifier, {80, 60});
}

whenopen<ts3filedialog> chooseUpload(sessionfixture* fixture, const QString& name, const QString& directory)
{
    return whenopen<ts3filedialog>([fixture, name, directory](ts3filedialog& dialog) {
        auto* table = dialog.findChild<QTableWidget*>();
        enterRow(table, 0);
        if (!directory.isEmpty()) {
            emit fixture->controller.fileList(1, 1, QString::fromLatin1("/"), directory, 0, 0, FileListType_Directory);
            enterRow(table, 0);
        }
        dialog.findChild<QLineEdit*>(QString::fromLatin1("filenameedit"))->setText(name);
        dialog.accept();
    });
}

warningcounter::warningcounter()
{
    warnings = 0;
    handlerBefore = qInstallMessageHandler(countWarnings);
}

warningcounter::~warningcounter() { qInstallMessageHandler(handlerBefore); }

int warningcounter::count() const { return warnings; }
