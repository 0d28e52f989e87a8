#include "canvas/paintscene.h"
#include "dialogs/kelvoraboutdialog.h"
#include "serverfiles/ts3downloaddialog.h"
#include "serverfiles/ts3filedialog.h"
#include "tests/support/whenopen.h"
#include "windowtest.h"

#include <QAction>
#include <QColorDialog>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QToolBar>

/// The dialogs that the window runs, and what else happens while one is open.
class tst_whiteboardprompts : public filewindowtest {
    Q_OBJECT

private slots:
    void init() { begin(); }
    void cleanup() { end(); }

    void chosenColourPaintsAndShows();
    void cancelledColourChangesNothing();
    void saveWritesThePicture();
    void saveWritesTheMergedPicture();
    void cancelledSaveWritesNothing();
    void failedSaveIsSilent();
    void aboutIsModal();
    void twoClicksOpenOneDialog();
    void strokesArePaintedMeanwhile_data();
    void strokesArePaintedMeanwhile();
    void endMeanwhile_data();
    void endMeanwhile();
    void closeMeanwhile_data();
    void closeMeanwhile();

private:
    // Opens one of the dialogs and runs act in its nested loop.
    void inDialog(const QString& dialog, whiteboard* window, const std::function<void(QDialog&)>& act);
};

namespace {

void addDialogs()
{
    QTest::addColumn<QString>("dialog");
    for (const char* dialog : {"colour", "save", "upload", "transfer", "info"})
        QTest::newRow(dialog) << QString::fromLatin1(dialog);
}

} // namespace

void tst_whiteboardprompts::inDialog(const QString& dialog, whiteboard* window,
                                     const std::function<void(QDialog&)>& act)
{
    if (dialog == "transfer") {
        const whenopen<ts3downloaddialog> user(act);
        const whenopen<ts3filedialog> chooser = chooseUpload(fixture.data(), "picture.png");
        click(window, "Upload");
        QVERIFY(user.ran());
        return;
    }
    const whenopen<QDialog> user(act);
    const QHash<QString, const char*> buttons{
        {"colour", "Color"}, {"save", "Save"}, {"upload", "Upload"}, {"info", "Info"}};
    click(window, buttons.value(dialog));
    QVERIFY(user.ran());
}

void tst_whiteboardprompts::chosenColourPaintsAndShows()
{
    whiteboard* window = fixture->openHost({2});
    QColor initial;
    const whenopen<QColorDialog> user([&initial](QColorDialog& dialog) {
        initial = dialog.currentColor();
        dialog.setCurrentColor(QColor(1, 35, 69));
        dialog.accept();
    });
    click(window, "Color");
    QVERIFY(user.ran());
    QCOMPARE(initial, QColor(Qt::black));
    const QIcon icon = window->findChild<QToolBar*>()->actions().at(0)->icon();
    QCOMPARE(icon.pixmap(16).toImage().pixel(8, 8), qRgb(1, 35, 69));
    QVERIFY(QMetaObject::invokeMethod(window, "onPencilButtonClicked", Q_ARG(bool, true)));
    QTest::mouseClick(canvasOf(window), Qt::LeftButton, Qt::NoModifier, {40, 40});
    QCOMPARE(pixel(window, 40, 40), qRgb(1, 35, 69));
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x02 #012345 1 40|40 40|40"});
    // The next choice starts from this one.
    const whenopen<QColorDialog> nextUser([&initial](QColorDialog& dialog) {
        initial = dialog.currentColor();
        dialog.reject();
    });
    click(window, "Color");
    QVERIFY(nextUser.ran());
    QCOMPARE(initial, QColor(1, 35, 69));
}

void tst_whiteboardprompts::cancelledColourChangesNothing()
{
    whiteboard* window = fixture->openHost({2});
    const QIcon before = window->findChild<QToolBar*>()->actions().at(0)->icon();
    const whenopen<QColorDialog> user([](QColorDialog& dialog) {
        dialog.setCurrentColor(Qt::red);
        dialog.reject();
    });
    click(window, "Color");
    QVERIFY(user.ran());
    QCOMPARE(window->findChild<QToolBar*>()->actions().at(0)->icon().cacheKey(), before.cacheKey());
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x11 1 \x06 #000000 1"});
}

void tst_whiteboardprompts::saveWritesThePicture()
{
    whiteboard* window = fixture->openHost({2});
    fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
    // The name is taken as typed: no suffix is added.
    const QString path = fixture->directory.filePath("picture");
    QString caption;
    QStringList filters;
    const whenopen<QFileDialog> user([&](QFileDialog& dialog) {
        caption = dialog.windowTitle();
        filters = dialog.nameFilters();
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept();
    });
    click(window, "Save");
    QVERIFY(user.ran());
    QCOMPARE(caption, QString("Save image to file"));
    QCOMPARE(filters, QStringList{"PNG-Images (*.png)"});
    QCOMPARE(QImage(path, "PNG").convertToFormat(QImage::Format_ARGB32), canvasOf(window)->picture());
    QVERIFY(fixture->host.takeSent().isEmpty());
}

void tst_whiteboardprompts::saveWritesTheMergedPicture()
{
    whiteboard* window = fixture->openHost({2}, fixture->pictureFile("start.png", Qt::blue), true);
    fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
    const QString path = fixture->directory.filePath("picture.png");
    const whenopen<QFileDialog> user([&](QFileDialog& dialog) {
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept();
    });
    click(window, "Save");
    QVERIFY(user.ran());
    const QImage saved(path);
    QCOMPARE(saved.pixel(50, 50), qRgb(255, 0, 0));
    QCOMPARE(saved.pixel(10, 10), qRgb(0, 0, 255));
}

void tst_whiteboardprompts::cancelledSaveWritesNothing()
{
    whiteboard* window = fixture->openHost({2});
    const QString path = fixture->directory.filePath("picture.png");
    const whenopen<QFileDialog> user([&](QFileDialog& dialog) {
        dialog.selectFile(path);
        dialog.reject();
    });
    click(window, "Save");
    QVERIFY(user.ran());
    QVERIFY(!QFileInfo::exists(path));
}

void tst_whiteboardprompts::failedSaveIsSilent()
{
    // Nothing can be written for a session without a canvas, and what stood there stays.
    whiteboard* window = fixture->openHost({2}, QString(), false, {0, 0});
    const QString path = fixture->pictureFile("old.png", Qt::green);
    const whenopen<QMessageBox> overwriting([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    const whenopen<QFileDialog> user([&](QFileDialog& dialog) {
        dialog.selectFile(path);
        static_cast<QDialog&>(dialog).accept();
    });
    click(window, "Save");
    QVERIFY(user.ran());
    QVERIFY(overwriting.ran());
    QCOMPARE(QImage(path).pixel(10, 10), QColor(Qt::green).rgba());
    QVERIFY(window->findChild<QStatusBar*>()->currentMessage().isEmpty());
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_whiteboardprompts::aboutIsModal()
{
    whiteboard* window = fixture->openHost({2});
    bool modal = false;
    const QWidget* parent = nullptr;
    const whenopen<kelvoraboutdialog> user([&](kelvoraboutdialog& dialog) {
        modal = dialog.isModal();
        parent = dialog.parentWidget();
        dialog.close();
    });
    click(window, "Info");
    QVERIFY(user.ran());
    QVERIFY(modal);
    QCOMPARE(parent, window);
    QVERIFY(window->findChildren<kelvoraboutdialog*>().isEmpty());
}

void tst_whiteboardprompts::twoClicksOpenOneDialog()
{
    whiteboard* window = fixture->openHost({2});
    int open = 0;
    const whenopen<QDialog> user([&](QDialog& dialog) {
        QCoreApplication::processEvents();
        open = window->findChildren<QDialog*>().size();
        dialog.reject();
    });
    action(window, "Info")->trigger();
    action(window, "Color")->trigger();
    QCOMPARE(window->findChildren<QDialog*>().size(), 0);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::MetaCall);
    QVERIFY(user.ran());
    QCOMPARE(open, 1);
    QVERIFY(!QApplication::activeModalWidget());
}

void tst_whiteboardprompts::strokesArePaintedMeanwhile_data() { addDialogs(); }

void tst_whiteboardprompts::strokesArePaintedMeanwhile()
{
    QFETCH(QString, dialog);
    whiteboard* window = fixture->openHost({2, 3});
    QRgb meanwhile = 0;
    inDialog(dialog, window, [&](QDialog& open) {
        fixture->receive(1, "\x11 2 \x02 #ff0000 9 50|50 50|50");
        fixture->receive(1, "\x12 3");
        meanwhile = pixel(window, 50, 50);
        open.reject();
    });
    QCOMPARE(meanwhile, QColor(Qt::red).rgba());
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeSent().value(0).targets, QList<anyID>{2});
}

void tst_whiteboardprompts::endMeanwhile_data() { addDialogs(); }

void tst_whiteboardprompts::endMeanwhile()
{
    QFETCH(QString, dialog);
    const QPointer<whiteboard> window = fixture->openHost({2});
    QPointer<QDialog> shown;
    inDialog(dialog, window, [&](QDialog& open) {
        shown = &open;
        delete window.data();
    });
    QVERIFY(!window);
    QVERIFY(!shown);
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x12 1"});
    QVERIFY(fixture->controller.closed.isEmpty());
}

void tst_whiteboardprompts::closeMeanwhile_data() { addDialogs(); }

void tst_whiteboardprompts::closeMeanwhile()
{
    QFETCH(QString, dialog);
    const QPointer<whiteboard> window = fixture->openHost({2});
    inDialog(dialog, window, [&](QDialog&) { window->close(); });
    QTRY_VERIFY(!window);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCOMPARE(fixture->host.takeTexts(), QList<QByteArray>{"\x12 1"});
    QCOMPARE(fixture->controller.closed, QList<uint64>{1});
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    // The dialogs of the desktop cannot be driven from here.
    application.setAttribute(Qt::AA_DontUseNativeDialogs);
    tst_whiteboardprompts test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_whiteboardprompts.moc"
