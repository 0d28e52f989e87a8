#include "filebrowsing.h"
#include "serverfiles/mytableitem.h"

#include <QDateTime>
#include <QHeaderView>
#include <QInputDialog>

#include <random>

namespace {

struct entry {
    QString name;
    bool directory;
    uint64 size;
};

// Names of few letters, so that many of them are equal and differ in case only.
QList<entry> randomEntries(unsigned int seed, int count)
{
    std::mt19937 random(seed);
    const QString letters = QString::fromUtf8("aAbB1_\xc3\xa4.");
    QList<entry> entries;
    for (int i = 0; i < count; ++i) {
        QString name;
        for (unsigned int length = random() % 4; length > 0; --length)
            name += letters[static_cast<int>(random() % static_cast<unsigned int>(letters.size()))];
        entries.append({name + ".png", random() % 2 == 0, static_cast<uint64>(i)});
    }
    return entries;
}

// The literal rule: each entry goes to the end, then all rows are sorted by name and after that by type.
void appendAndSort(QTableWidget& table, const entry& added)
{
    const int row = table.rowCount();
    table.insertRow(row);
    table.setItem(row, 0, new mytableitem(added.name, 0, 0));
    table.setItem(row, 1, new QTableWidgetItem(QString::number(added.size)));
    table.setItem(row, 2, new QTableWidgetItem(added.directory ? "Directory" : "File"));
    table.sortItems(0, Qt::AscendingOrder);
    table.sortItems(2, Qt::AscendingOrder);
}

} // namespace

/// What the remote file dialog's table shows.
class tst_filelisting : public QObject {
    Q_OBJECT

private slots:
    void tableIsFormed();
    void channelsStandInTheClientsOrder();
    void channelShowsWhetherItIsLocked();
    void channelWithoutANameIsStillThere();
    void unknownPasswordFlagShowsAnOpenChannel();
    void failingChannelListLeavesTheTableEmpty();
    void foreignNamesStayPlainAndOnTheirLine_data();
    void foreignNamesStayPlainAndOnTheirLine();
    void rowsOfADirectory();
    void onlyPicturesAreListed();
    void saveModeListsDirectoriesOnly();
    void everyTypeButZeroIsAFile();
    void foreignAnswersFallAway_data();
    void foreignAnswersFallAway();
    void answersOfAnEarlierDirectoryFallAway();
    void emptyDirectoryLeavesTheTableEmpty();
    void directoriesComeFirstEachByName();
    void rowsStandWhereSortingAtEachRowPutsThem_data();
    void rowsStandWhereSortingAtEachRowPutsThem();
    void columnsFitTheirTexts();
    void typeStaysReadableBesideLongNames();
    void selectionStaysWithItsRow();
    void entriesBetweenChannelsPushThemBehind();
};

void tst_filelisting::tableIsFormed()
{
    filebrowsing browsing;
    browsing.open([](filewindow& window) {
        QCOMPARE(window.table.columnCount(), 4);
        QStringList headers;
        for (int column = 0; column < 4; ++column)
            headers.append(window.table.horizontalHeaderItem(column)->text());
        QCOMPARE(headers, QStringList({"Name", "Size", "Type", "Last Changed"}));
        const QHeaderView* const header = window.table.horizontalHeader();
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::ResizeToContents);
        QCOMPARE(header->sectionResizeMode(2), QHeaderView::Stretch);
        QCOMPARE(header->sectionResizeMode(3), QHeaderView::ResizeToContents);
        QCOMPARE(window.table.editTriggers(), QAbstractItemView::NoEditTriggers);
        QCOMPARE(window.table.selectionBehavior(), QAbstractItemView::SelectRows);
        QVERIFY(!window.table.showGrid());
        QVERIFY(!window.table.verticalHeader()->isVisible());
    });
}

void tst_filelisting::channelsStandInTheClientsOrder()
{
    filebrowsing browsing;
    browsing.server.addChannel(2, "M\xc3\xbcller");
    browsing.server.addChannel(3, "Attic");
    browsing.open([](filewindow& window) {
        QCOMPARE(window.names(), QStringList({"Lobby", "Vault", QString::fromUtf8("M\xc3\xbcller"), "Attic"}));
        QCOMPARE(window.rowTexts(0), QStringList({"Lobby", "-", "-", "-"}));
    });
    QCOMPARE(browsing.host.outstanding, 0);
}

void tst_filelisting::channelShowsWhetherItIsLocked()
{
    filebrowsing browsing;
    browsing.open([](filewindow& window) {
        QVERIFY(showsPicture(window.table.item(0, 0)->icon(), "channel_green.png"));
        QVERIFY(showsPicture(window.table.item(1, 0)->icon(), "channel_invited.png"));
    });
}

void tst_filelisting::channelWithoutANameIsStillThere()
{
    filebrowsing browsing;
    browsing.host.failing.insert("getChannelVariableAsString");
    browsing.open([&](filewindow& window) {
        QCOMPARE(window.names(), QStringList({"ERROR getting channel name", "ERROR getting channel name"}));
        window.doubleClick(0);
        QTRY_COMPARE(browsing.host.requests.size(), 1);
        QCOMPARE(browsing.host.requests.first().channel, filebrowsing::openChannel);
    });
}

void tst_filelisting::unknownPasswordFlagShowsAnOpenChannel()
{
    filebrowsing browsing;
    browsing.host.failing.insert("getChannelVariableAsInt");
    browsing.open(
        [](filewindow& window) { QVERIFY(showsPicture(window.table.item(1, 0)->icon(), "channel_green.png")); });
}

void tst_filelisting::failingChannelListLeavesTheTableEmpty()
{
    filebrowsing browsing;
    browsing.host.failing.insert("getChannelList");
    browsing.open([](filewindow& window) {
        QCOMPARE(window.table.rowCount(), 0);
        QVERIFY(window.status.currentMessage().isEmpty());
    });
}

void tst_filelisting::foreignNamesStayPlainAndOnTheirLine_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    const QString tag = "<img src=/dev/zero>.png";
    QTest::newRow("HTML") << tag << tag;
    QTest::newRow("line breaks") << "\na\nb.png"
                                 << " a b.png";
    const QString turned = QChar(0x202e) + QString("gnp.exe.png");
    QTest::newRow("right to left") << turned << turned.mid(1);
    QTest::newRow("very long") << QString(100000, 'w') + ".png"
                               << QString(127, 'w') + QChar(0x2026) + QString(123, 'w') + ".png";
}

// The items have the names as they are, for paths are made of them.
void tst_filelisting::foreignNamesStayPlainAndOnTheirLine()
{
    QFETCH(QString, name);
    QFETCH(QString, shown);
    filebrowsing browsing;
    browsing.server.channels[filebrowsing::lockedChannel].name = name.toUtf8();
    const bool accepted = browsing.open([&](filewindow& window) {
        QCOMPARE(window.names().last(), name);
        QCOMPARE(window.shownName(1), shown);
        const int room = window.table.fontMetrics().horizontalAdvance(shown);
        QTRY_VERIFY(window.table.columnWidth(0) > room);
        QVERIFY(window.table.columnWidth(0) < room + 100);
        QCOMPARE(window.table.rowHeight(1), window.table.rowHeight(0));
        window.enter();
        browsing.giveFile(name);
        QCOMPARE(window.shownName(0), shown);
        window.doubleClick(0);
        QTRY_VERIFY(!window.table.isVisible());
    });
    QVERIFY(accepted);
    QCOMPARE(browsing.path, '/' + name);
}

void tst_filelisting::rowsOfADirectory()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        QCOMPARE(window.table.horizontalHeaderItem(3)->text(), QString("Last Changed"));

        const QDateTime changed(QDate(2010, 5, 7), QTime(9, 8, 3));
        const auto seconds = static_cast<uint64>(changed.toSecsSinceEpoch());
        const QString date = changed.toString("MMM") + " 07 09:08:03 2010";
        emit browsing.parent->fileList(filebrowsing::connection, filebrowsing::openChannel, "/", "dir", 4096, seconds,
                                       0);
        emit browsing.parent->fileList(filebrowsing::connection, filebrowsing::openChannel, "/", "b.PNG", 1536, seconds,
                                       1);
        QCOMPARE(window.table.rowCount(), 2);
        QCOMPARE(window.rowTexts(0), QStringList({"dir", "", "Directory", date}));
        QCOMPARE(window.rowTexts(1), QStringList({"b.PNG", "1 KB", "File", date}));
        QCOMPARE(window.table.item(1, 1)->data(Qt::UserRole).toULongLong(), 1536ULL);
        QVERIFY(showsPicture(window.table.item(0, 0)->icon(), "directory.png"));
        QVERIFY(showsPicture(window.table.item(1, 0)->icon(), "new_file.png"));
    });
}

void tst_filelisting::onlyPicturesAreListed()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        for (const char* name : {"a.txt", "HOLIDAY.JPG", "png", "b.jpeg", "c"})
            browsing.giveFile(name);
        QCOMPARE(window.names(), QStringList({"HOLIDAY.JPG", "png"}));
    });
}

void tst_filelisting::saveModeListsDirectoriesOnly()
{
    filebrowsing browsing;
    browsing.save([&](filewindow& window) {
        window.enter();
        browsing.giveFile("a.png");
        browsing.giveDirectory("a.txt");
        QCOMPARE(window.names(), QStringList({"a.txt"}));
    });
}

void tst_filelisting::everyTypeButZeroIsAFile()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        for (const int type : {-1, 2, 1000})
            emit browsing.parent->fileList(filebrowsing::connection, filebrowsing::openChannel, "/", "a.png", 1, 1,
                                           type);
        QCOMPARE(window.table.rowCount(), 3);
        QCOMPARE(window.table.item(2, 2)->text(), QString("File"));
    });
}

void tst_filelisting::foreignAnswersFallAway_data()
{
    QTest::addColumn<qulonglong>("connection");
    QTest::addColumn<qulonglong>("channel");
    QTest::addColumn<QString>("path");

    QTest::newRow("other connection") << 8ULL << 1ULL << "/";
    QTest::newRow("other channel") << 7ULL << 4ULL << "/";
    QTest::newRow("other directory") << 7ULL << 1ULL << "/d";
    QTest::newRow("directory as other text") << 7ULL << 1ULL << "//";
    QTest::newRow("no directory") << 7ULL << 1ULL << "";
}

void tst_filelisting::foreignAnswersFallAway()
{
    QFETCH(qulonglong, connection);
    QFETCH(qulonglong, channel);
    QFETCH(QString, path);
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        emit browsing.parent->fileList(connection, channel, path, "a.png", 1, 1, FileListType_File);
        QCOMPARE(window.table.rowCount(), 0);
    });
}

void tst_filelisting::answersOfAnEarlierDirectoryFallAway()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveDirectory("d");
        window.enter();
        browsing.giveFile("late.png", 1, "/");
        browsing.giveFile("right.png", 1, "/d");
        QCOMPARE(window.names(), QStringList({"right.png"}));
    });
}

void tst_filelisting::emptyDirectoryLeavesTheTableEmpty()
{
    filebrowsing browsing;
    browsing.open([](filewindow& window) {
        window.enter();
        QVERIFY(window.status.currentMessage().isEmpty());
        QVERIFY(!window.ok.isEnabled());
    });
}

void tst_filelisting::directoriesComeFirstEachByName()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        for (const char* name : {"b.png", "B.png", "a.png", "A.png"})
            browsing.giveFile(name);
        for (const char* name : {"z", "Z", "y"})
            browsing.giveDirectory(name);
        QCOMPARE(window.names(), QStringList({"Z", "y", "z", "A.png", "B.png", "a.png", "b.png"}));
    });
}

void tst_filelisting::rowsStandWhereSortingAtEachRowPutsThem_data()
{
    QTest::addColumn<unsigned int>("seed");
    for (unsigned int seed = 1; seed <= 5; ++seed)
        QTest::addRow("seed %u", seed) << seed;
}

void tst_filelisting::rowsStandWhereSortingAtEachRowPutsThem()
{
    QFETCH(unsigned int, seed);
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        QTableWidget expected(0, 3);
        const QList<entry> entries = randomEntries(seed, 60);
        for (const entry& added : entries) {
            appendAndSort(expected, added);
            // The date tells apart what is equal by name and type.
            emit browsing.parent->fileList(filebrowsing::connection, filebrowsing::openChannel, "/", added.name, 0,
                                           added.size, added.directory ? 0 : 1);
        }
        QCOMPARE(window.table.rowCount(), expected.rowCount());
        for (int row = 0; row < expected.rowCount(); ++row) {
            const QDateTime date = QDateTime::fromSecsSinceEpoch(expected.item(row, 1)->text().toLongLong());
            QCOMPARE(window.table.item(row, 0)->text(), expected.item(row, 0)->text());
            QCOMPARE(window.table.item(row, 2)->text(), expected.item(row, 2)->text());
            QCOMPARE(window.table.item(row, 3)->text(), date.toString("MMM dd hh:mm:ss yyyy"));
        }
    });
}

void tst_filelisting::columnsFitTheirTexts()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        const QString longName = QString(60, 'W') + ".png";
        browsing.giveFile("a.png");
        browsing.giveFile(longName);
        const int needed = window.table.fontMetrics().horizontalAdvance(longName) + window.table.iconSize().width();
        QTRY_VERIFY(window.table.columnWidth(0) > needed);
        window.refresh.click();
        browsing.giveFile("a.png");
        QTRY_VERIFY(window.table.columnWidth(0) < needed);
    });
}

// The column of the types takes what the others leave, at some lengths of a name too little.
void tst_filelisting::typeStaysReadableBesideLongNames()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        const int needed = window.table.fontMetrics().horizontalAdvance("Directory");
        for (int length = 1; length < 60; ++length) {
            browsing.giveFile(QString(length, 'n') + ".png");
            QCoreApplication::processEvents();
            QVERIFY(window.table.columnWidth(2) > needed);
        }
    });
}

void tst_filelisting::selectionStaysWithItsRow()
{
    filebrowsing browsing;
    browsing.open([&](filewindow& window) {
        window.enter();
        browsing.giveFile("m.png");
        window.select(0);
        QVERIFY(window.ok.isEnabled());
        browsing.giveFile("a.png");
        browsing.giveFile("z.png");
        QCOMPARE(window.table.selectedItems().first()->text(), QString("m.png"));
        QVERIFY(window.ok.isEnabled());
    });
}

// After a cancelled password prompt a directory is browsed while the table still shows the channels.
void tst_filelisting::entriesBetweenChannelsPushThemBehind()
{
    filebrowsing browsing;
    browsing.server.channels[1].password = true;
    browsing.server.addChannel(9, "Attic");
    browsing.open([&](filewindow& window) {
        const whenopen<QInputDialog> user([](QInputDialog& prompt) { prompt.reject(); });
        window.doubleClick(0);
        QTRY_VERIFY(user.ran());
        browsing.giveFile("x.png");
        browsing.giveDirectory("d");
        QCOMPARE(window.names(), QStringList({"d", "x.png", "Attic", "Lobby", "Vault"}));
    });
}

QTEST_MAIN(tst_filelisting)
#include "tst_filelisting.moc"
