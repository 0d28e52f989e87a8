#include "corpusreplay.h"

#include "fuzz/targets/mutator.h"
#include "fuzz/targets/seeds.h"

#include <QDir>
#include <QTest>

namespace {

using places = QMap<QByteArray, int>;

// What a mutation breaks, sanitizers see long before anything else does.
#ifdef __SANITIZE_ADDRESS__
constexpr int share = 1;
#else
constexpr int share = 4;
#endif

QString inFuzz(const QByteArray& path) { return QString::fromLatin1(KELVOR_FUZZ_DIRECTORY "/" + path); }

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What one run of the input reaches.
places reachedBy(fuzztarget& reader, const QByteArray& input)
{
    const places before = reader.reached();
    reader.run(input);
    places reached = reader.reached();
    for (auto place = reached.begin(); place != reached.end(); ++place)
        *place -= before.value(place.key());
    return reached;
}

} // namespace

corpusreplay::corpusreplay(const char* target, int mutations)
    : target(target)
    , mutations(mutations / share)
{
}

void corpusreplay::initTestCase()
{
    reader = makeTarget(target);
    QVERIFY(reader);
    const QDir directory(inFuzz("corpus/" + target));
    const QStringList names = directory.entryList(QDir::Files, QDir::Name);
    for (const QString& name : names)
        corpus.insert(name, contentOf(directory.filePath(name)));
    QVERIFY(!corpus.isEmpty());
    // The first run of all opens the windows that the others find open.
    reader->run(QByteArray());
}

void corpusreplay::theCorpusIsWhatTheWriterMakes()
{
    const QMap<QByteArray, QByteArray> seeds = seedsOf(target);
    for (auto seed = seeds.begin(); seed != seeds.end(); ++seed) {
        const QString name = QString::fromLatin1(seed.key());
        QVERIFY2(corpus.contains(name), "makecorpus was not run");
        // The toolkit's picture files differ from version to version.
        if (target != "pictures")
            QCOMPARE(corpus.value(name).toHex(' '), seed.value().toHex(' '));
    }
}

void corpusreplay::eachInputOfTheCorpusIsSurvivedAndLeavesNothingBehind_data()
{
    QTest::addColumn<QByteArray>("input");
    for (auto input = corpus.constBegin(); input != corpus.constEnd(); ++input)
        QTest::newRow(qPrintable(input.key())) << input.value();
}

void corpusreplay::eachInputOfTheCorpusIsSurvivedAndLeavesNothingBehind()
{
    QFETCH(QByteArray, input);
    const places first = reachedBy(*reader, input);
    QCOMPARE(reachedBy(*reader, input), first);
}

void corpusreplay::mutationsOfTheCorpusAreSurvived()
{
    const QByteArray dictionary = target == "pictures" ? "pictures.dict" : "wire.dict";
    const QList<QByteArray> tokens = dictionaryTokens(contentOf(inFuzz(dictionary)));
    QVERIFY(tokens.size() > 20);
    const places before = reader->reached();
    mutator mutated(20101, corpus.values(), tokens);
    for (int run = 0; run < mutations; ++run)
        reader->run(mutated.next());
    // Did they come to nothing, little would have been tried.
    const places reached = reader->reached();
    for (auto place = reached.begin(); place != reached.end(); ++place)
        QVERIFY2(place.value() - before.value(place.key()) > mutations / 100, place.key().constData());
}
