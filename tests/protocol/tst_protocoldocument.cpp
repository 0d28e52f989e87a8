#include "protocol/kelvorprotocol.h"
#include "signalrecorder.h"
#include "tests/support/fakehost.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <functional>
#include <vector>

// The examples of docs/protocol.md, read and written by the endpoint.
namespace {

constexpr uint64 schid = 1;
constexpr anyID target = 12;
const anyID targets[] = {target, 0};

struct wireexample {
    int line = 0; ///< of the document, where the block begins
    QByteArray heading; ///< the one above it
    QMap<QByteArray, QByteArray> fields;
};

// The blocks that are fenced as "wire": lines of a key and a value that begins at column 9.
QVector<wireexample> examplesOf(const QList<QByteArray>& document)
{
    QVector<wireexample> examples;
    QByteArray heading;
    bool inside = false;
    for (int i = 0; i < document.size(); ++i) {
        const QByteArray& line = document.at(i);
        if (inside && line != "```")
            examples.last().fields.insert(line.left(8).trimmed(), line.mid(8));
        if (line.startsWith("##"))
            heading = line;
        if (line == "```wire")
            examples.append({i + 1, heading, {}});
        inside = line == "```wire" || (inside && line != "```");
    }
    return examples;
}

// A text in which a byte may be written as its number in angle brackets.
QByteArray bytesOf(QByteArray text)
{
    const QRegularExpression number("<(\\d+)>");
    for (auto match = number.match(text); match.hasMatch(); match = number.match(text))
        text.replace(match.captured().toLatin1(), QByteArray(1, static_cast<char>(match.captured(1).toInt())));
    return text;
}

// The arguments of a call such as sendDraw(6, "#000000", 1, []), without quotes and brackets.
QStringList argumentsOf(const QString& call)
{
    QStringList arguments;
    auto matches = QRegularExpression("\"([^\"]*)\"|\\[([^]]*)\\]|([^,() ]+)").globalMatch(call.mid(call.indexOf('(')));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        arguments.append(match.captured(match.lastCapturedIndex()));
    }
    return arguments;
}

template <typename ID> std::vector<ID> listOf(const QString& argument)
{
    std::vector<ID> list;
    const QStringList entries = argument.split(' ', Qt::SkipEmptyParts);
    for (const QString& entry : entries)
        list.push_back(static_cast<ID>(entry.toULongLong()));
    list.push_back(0);
    return list;
}

QList<QPoint> pointsOf(const QString& argument)
{
    QList<QPoint> points;
    const QStringList entries = argument.split(' ', Qt::SkipEmptyParts);
    for (const QString& entry : entries)
        points.append({entry.section('|', 0, 0).toInt(), entry.section('|', 1, 1).toInt()});
    return points;
}

// Carries out a call of the document; false when there is no such operation. An operation with one target goes to the
// client that an argument names, or else to the usual one.
bool perform(kelvorprotocol& e, const QByteArray& call)
{
    const QStringList a = argumentsOf(call);
    const anyID one = a.isEmpty() ? target : static_cast<anyID>(a.first().toUInt());
    const auto client = [&] { return static_cast<anyID>(a.value(0).toUInt()); };
    const auto channel = [&] { return uint64(a.value(0).toULongLong()); };
    const auto tool = [&] { return static_cast<char>(a.value(0).toInt()); };
    const QMap<QByteArray, std::function<void()>> operations = {
        {"sendInvite", [&] { e.sendInvite(schid, one); }},
        {"sendInviteList", [&] { e.sendInviteList(schid, listOf<anyID>(a.value(0)).data(), target); }},
        {"sendChannelInviteList", [&] { e.sendChannelInviteList(schid, listOf<uint64>(a.value(0)).data(), target); }},
        {"sendAcceptList", [&] { e.sendAcceptList(schid, listOf<anyID>(a.value(0)).data(), target); }},
        {"sendRejectList", [&] { e.sendRejectList(schid, listOf<anyID>(a.value(0)).data(), target); }},
        {"sendClientInvited", [&] { e.sendClientInvited(schid, client(), targets); }},
        {"sendChannelInvited", [&] { e.sendChannelInvited(schid, channel(), targets); }},
        {"sendClientTakenBack", [&] { e.sendClientTakenBack(schid, client(), targets); }},
        {"sendChannelTakenBack", [&] { e.sendChannelTakenBack(schid, channel(), targets); }},
        {"sendClientAcceptedInvite", [&] { e.sendClientAcceptedInvite(schid, client(), targets); }},
        {"sendClientRejectedInvite", [&] { e.sendClientRejectedInvite(schid, client(), targets); }},
        {"sendClientRejectedInviteVersion", [&] { e.sendClientRejectedInviteVersion(schid, client(), targets); }},
        {"sendAccept", [&] { e.sendAccept(schid, one); }},
        {"sendReject", [&] { e.sendReject(schid, one); }},
        {"sendRejectVersion", [&] { e.sendRejectVersion(schid, one); }},
        {"sendStart",
         [&] {
             e.sendStart(schid, a.value(0).toInt(), a.value(1).toInt(), a.value(2).toULongLong(), a.value(3) == "true",
                         a.value(4).toULongLong(), a.value(5), targets);
         }},
        {"sendDraw",
         [&] { e.sendDraw(schid, tool(), a.value(1), a.value(2).toDouble(), pointsOf(a.value(3)), targets); }},
        {"sendLogout", [&] { e.sendLogout(schid, targets); }},
        {"sendExtendedDraw", [&] { e.sendExtendedDraw(schid, tool(), a.value(1), targets); }},
        {"sendDownloadFinished", [&] { e.sendDownloadFinished(schid, a.value(0) == "true", targets); }},
        {"sendTakeBack", [&] { e.sendTakeBack(schid, one); }},
        {"sendPing", [&] { e.sendPing(schid, targets); }},
        {"sendPong", [&] { e.sendPong(schid, one); }},
        {"sendBusy", [&] { e.sendBusy(schid, one); }},
    };
    const auto operation = operations.find(call.left(call.indexOf('(')));
    if (operation == operations.end())
        return false;
    (*operation)();
    return true;
}

} // namespace

Q_DECLARE_METATYPE(wireexample)

class tst_protocoldocument : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void bytesAndTextAreTheSame_data() { addExamples(); }
    void bytesAndTextAreTheSame();
    void callsWriteTheBytes_data() { addExamples("call"); }
    void callsWriteTheBytes();
    void bytesAreReadAsTold_data() { addExamples(); }
    void bytesAreReadAsTold();
    void everyKindHasItsSectionAndExample();
    void tableListsTheKindsOfTheSections();

private:
    void addExamples(const QByteArray& withField = "bytes");

    fakehost host;
    kelvorprotocol protocol{host.table()};
    signalrecorder recorder{&protocol};
    QList<QByteArray> document;
    QVector<wireexample> examples;
};

void tst_protocoldocument::initTestCase()
{
    QFile file(KELVOR_DOCS "/protocol.md");
    QVERIFY2(file.open(QIODevice::ReadOnly), KELVOR_DOCS);
    document = file.readAll().split('\n');
    examples = examplesOf(document);
    host.addServer(schid);
}

void tst_protocoldocument::addExamples(const QByteArray& withField)
{
    QTest::addColumn<wireexample>("example");
    for (const wireexample& example : qAsConst(examples)) {
        if (example.fields.contains(withField))
            QTest::addRow("line %d", example.line) << example;
    }
}

void tst_protocoldocument::bytesAndTextAreTheSame()
{
    QFETCH(wireexample, example);
    const QByteArray bytes = QByteArray::fromHex(example.fields.value("bytes"));
    QCOMPARE(bytesOf(example.fields.value("text")), bytes);
    QCOMPARE(bytes.toHex(' '), example.fields.value("bytes"));
}

void tst_protocoldocument::callsWriteTheBytes()
{
    QFETCH(wireexample, example);
    host.servers[schid].ownID = static_cast<anyID>(example.fields.value("from").toUInt());
    QVERIFY(perform(protocol, example.fields.value("call")));
    QCOMPARE(host.takeTexts(), QList<QByteArray>{QByteArray::fromHex(example.fields.value("bytes"))});
}

void tst_protocoldocument::bytesAreReadAsTold()
{
    QFETCH(wireexample, example);
    QList<QByteArray> signalsTold;
    if (example.fields.contains("signal"))
        signalsTold.append(example.fields.value("signal"));
    if (example.fields.contains("answer"))
        QVERIFY(perform(protocol, example.fields.value("answer")));
    const QList<sentcommand> answersTold = host.takeSent();
    QCOMPARE(signalsTold.isEmpty() && answersTold.isEmpty(), example.fields.contains("dropped"));

    protocol.dispatch(schid, QByteArray::fromHex(example.fields.value("bytes")));
    QCOMPARE(recorder.take(), signalsTold);
    QVERIFY(host.takeSent() == answersTold);
}

void tst_protocoldocument::everyKindHasItsSectionAndExample()
{
    QVector<int> written(25);
    for (const wireexample& example : qAsConst(examples)) {
        if (!example.heading.startsWith("### "))
            continue;
        const int kind = example.heading.mid(4).split(' ').first().toInt();
        QCOMPARE(static_cast<int>(QByteArray::fromHex(example.fields.value("bytes")).at(0)), kind);
        written[kind] += example.fields.contains("call") ? 1 : 0;
    }
    for (int kind = 1; kind <= 24; ++kind)
        QVERIFY2(written.at(kind) > 0, QByteArray::number(kind));
}

void tst_protocoldocument::tableListsTheKindsOfTheSections()
{
    QList<QByteArray> sections;
    QList<QByteArray> rows;
    for (const QByteArray& line : qAsConst(document)) {
        const QList<QByteArray> cells = line.split('|');
        if (line.startsWith("### "))
            sections.append(line.mid(4));
        if (cells.size() == 8 && cells.at(2).startsWith(" `"))
            rows.append(cells.at(1).trimmed() + ' ' + cells.at(2).trimmed());
    }
    QCOMPARE(rows.size(), 24);
    QCOMPARE(rows, sections);
}

QTEST_GUILESS_MAIN(tst_protocoldocument)
#include "tst_protocoldocument.moc"
