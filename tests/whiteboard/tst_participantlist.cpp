#include "canvas/paintscene.h"
#include "dialogs/mysplitter.h"
#include "sessionfixture.h"
#include "windowparts.h"

#include <QAccessible>
#include <QListWidget>
#include <QScrollBar>
#include <QtTest>

/// The list of participants: its pane, its rows, which stand parallel to the participants, and their icons.
class tst_participantlist : public QObject {
    Q_OBJECT

private slots:
    void init() { fixture.reset(new sessionfixture); }
    void cleanup() { fixture.reset(); }

    void emptyListStartsCollapsed();
    void collapsedListCanBePulledOpen();
    void listOfParticipantsIsShown();
    void nicknamesStayInOneLine_data();
    void nicknamesStayInOneLine();
    void downloadResultsShowAsIcons();
    void downloadResultOfAStrangerIsDropped();
    void rowsAndParticipantsStayParallel();
    void clientWithoutNicknameHasNoRow();
    void rowsBehindAMissingNicknameAreOneOff();
    void allNicknamesMissing();

private:
    QScopedPointer<sessionfixture> fixture;
};

void tst_participantlist::emptyListStartsCollapsed()
{
    whiteboard* window = fixture->openHost({});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const auto* splitter = window->findChild<mysplitter*>();
    QCOMPARE(splitter->sizes().at(1), 0);
    QVERIFY(splitter->sizes().at(0) > 500);
}

void tst_participantlist::collapsedListCanBePulledOpen()
{
    whiteboard* window = fixture->openHost({});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    auto* splitter = window->findChild<mysplitter*>();
    QWidget* handle = splitter->handle(1);
    QVERIFY(handle->isVisible());
    QTest::mousePress(handle, Qt::LeftButton, Qt::NoModifier, handle->rect().center());
    QMouseEvent move(QEvent::MouseMove, QPointF(-120, 50), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(handle, &move);
    QTest::mouseRelease(handle, Qt::LeftButton, Qt::NoModifier, {-120, 50});
    QTRY_VERIFY(splitter->sizes().at(1) > 80);
    QCOMPARE(window->findChild<QListWidget*>()->count(), 0);
}

void tst_participantlist::listOfParticipantsIsShown()
{
    whiteboard* window = fixture->openHost({3, 2});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    const auto* list = window->findChild<QListWidget*>();
    QVERIFY(list->width() > 60 && list->width() <= 150);
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(0)->text(), QString("Bert"));
}

void tst_participantlist::nicknamesStayInOneLine_data()
{
    QTest::addColumn<QByteArray>("nickname");
    QTest::newRow("line breaks") << QByteArray("a\nb\r\nc\n\n\n\nd");
    QTest::newRow("line separators") << QByteArray("a\xe2\x80\xa8"
                                                   "b\xe2\x80\xa9"
                                                   "c");
    QTest::newRow("control characters") << QByteArray("a\x01\t\x0b\x1b[31m\x7f");
    QTest::newRow("very long") << QByteArray(100000, 'm');
    QTest::newRow("HTML") << QByteArray("<h1>big</h1><img src=/dev/zero>");
    QTest::newRow("right to left") << QByteArray("\xe2\x80\xae\xd7\x90\xd7\x91 abc \xe2\x80\xab");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("invalid UTF-8") << QByteArray("\xff\xfe\x80");
}

void tst_participantlist::nicknamesStayInOneLine()
{
    QFETCH(QByteArray, nickname);
    fixture->host.servers[1].addClient(9, nickname);
    whiteboard* window = fixture->openHost({2, 9, 3});
    QVERIFY(QTest::qWaitForWindowExposed(window));
    auto* list = window->findChild<QListWidget*>();
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(1)->text(), QString::fromUtf8(nickname));
    const int ordinary = list->visualItemRect(list->item(0)).height();
    QVERIFY(list->visualItemRect(list->item(1)).height() < 2 * ordinary);
    QCOMPARE(list->visualItemRect(list->item(1)).width(), list->viewport()->width());
    QVERIFY(!list->horizontalScrollBar()->isVisible());
    QVERIFY(list->width() <= 150);
    QVERIFY(!list->item(1)->toolTip().contains("<img") && !list->item(1)->toolTip().contains("<h1"));
    QVERIFY(!list->grab().isNull());
}

void tst_participantlist::downloadResultsShowAsIcons()
{
    whiteboard* window = fixture->openHost({2, 3, 4});
    for (int row = 0; row < 3; ++row)
        QVERIFY(rowIcon(window, row).isNull());
    fixture->receive(1, "\x14 3 true");
    fixture->receive(1, "\x14 4 false");
    QVERIFY(rowIcon(window, 0).isNull());
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
    QVERIFY(isIcon(rowIcon(window, 2), ":/gfx/gfx/cancel.png"));
    QVERIFY(!isIcon(rowIcon(window, 1), ":/gfx/gfx/cancel.png"));
    // The icons can be heard, too.
    const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(window->findChild<QListWidget*>());
    QCOMPARE(list->child(1)->text(QAccessible::Description), QString("has the picture"));
    QCOMPARE(list->child(2)->text(QAccessible::Description), QString("has no picture"));
    // Who failed goes on painting.
    fixture->receive(1, QByteArray("\x11 4 \x02 #0000ff 9 50|50 50|50"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::blue).rgba());
}

void tst_participantlist::downloadResultOfAStrangerIsDropped()
{
    whiteboard* window = fixture->openHost({2});
    fixture->receive(1, "\x14 4 true");
    fixture->receive(2, "\x14 2 true");
    QVERIFY(rowIcon(window, 0).isNull());
}

void tst_participantlist::rowsAndParticipantsStayParallel()
{
    whiteboard* window = fixture->openHost({4, 2, 3});
    fixture->receive(1, "\x12 4");
    fixture->receive(1, "\x14 3 true");
    QCOMPARE(rows(window), (QStringList{"Anna", "Bert"}));
    QVERIFY(rowIcon(window, 0).isNull());
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
    fixture->receive(1, "\x12 2");
    QCOMPARE(rows(window), QStringList{"Bert"});
    QVERIFY(isIcon(rowIcon(window, 0), ":/gfx/gfx/apply.png"));
}

void tst_participantlist::clientWithoutNicknameHasNoRow()
{
    whiteboard* window = fixture->openHost({2, 99});
    QCOMPARE(rows(window), QStringList{"Anna"});
    // It stays a participant: it gets strokes, its own are painted, its icon goes nowhere.
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeSent().value(0).targets, (QList<anyID>{2, 99}));
    fixture->receive(1, QByteArray("\x11 99 \x02 #0000ff 9 50|50 50|50"));
    QCOMPARE(pixel(window, 50, 50), QColor(Qt::blue).rgba());
    fixture->receive(1, "\x14 99 true");
    QVERIFY(rowIcon(window, 0).isNull());
    fixture->receive(1, "\x12 99");
    QCOMPARE(rows(window), QStringList{"Anna"});
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeSent().value(0).targets, QList<anyID>{2});
}

void tst_participantlist::rowsBehindAMissingNicknameAreOneOff()
{
    whiteboard* window = fixture->openHost({99, 2, 3});
    QCOMPARE(rows(window), (QStringList{"Anna", "Bert"}));
    fixture->receive(1, "\x14 2 true");
    QVERIFY(rowIcon(window, 0).isNull());
    QVERIFY(isIcon(rowIcon(window, 1), ":/gfx/gfx/apply.png"));
    fixture->receive(1, "\x12 2");
    QCOMPARE(rows(window), QStringList{"Anna"});
    fixture->receive(1, "\x12 3");
    QCOMPARE(rows(window), QStringList{"Anna"});
    fixture->receive(1, "\x12 99");
    QVERIFY(rows(window).isEmpty());
}

void tst_participantlist::allNicknamesMissing()
{
    fixture->host.failing.insert("getClientVariableAsString");
    whiteboard* window = fixture->openHost({2, 3});
    QVERIFY(rows(window).isEmpty());
    fixture->receive(1, "\x14 3 true");
    fixture->receive(1, "\x12 2");
    emit canvasOf(window)->paintDataAvailable(kelvortool::clear, {});
    QCOMPARE(fixture->host.takeSent().value(0).targets, QList<anyID>{3});
}

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    application.setQuitOnLastWindowClosed(false);
    tst_participantlist test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_participantlist.moc"
