#include "company.h"
#include "mailbag.h"

#include "canvas/paintscene.h"
#include "protocol/messagereader.h"
#include "tests/canvas/randomuser.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

const QSize size(120, 90);

/// How many deeds a session has, each a whole stroke, text, selection, fill or effect. The environment can ask for more
/// than every run of the tests can spend.
int deedsOfASession()
{
    bool given = false;
    const int deeds = qEnvironmentVariableIntValue("KELVOR_SESSION_DEEDS", &given);
    return given ? deeds : 200;
}

// A colour that nobody paints with.
constexpr QRgb untouched = 0xff0a0b0c;

/// The members of a company at their windows, each a user from a seed.
class painters {
public:
    painters(company& people, quint32 seed)
        : people(people)
        , random(seed)
    {
        for (anyID member = 1; member <= people.size(); ++member) {
            users.push_back(std::make_unique<randomuser>(*people.canvasOf(member), size, random.generate()));
            dress(member);
        }
    }

    /// A deed of the member; returns what its window sent.
    QList<letter> act(anyID member, void (randomuser::*deed)() = &randomuser::act)
    {
        (*users.at(member - 1U).*deed)();
        users.at(member - 1U)->takeMessages();
        return people.takeLetters();
    }
    anyID any() { return static_cast<anyID>(1 + random.bounded(people.size())); }
    scenehand& hand(anyID member) { return users.at(member - 1U)->hand(); }

private:
    /// The window of a member chooses. Few opened the dialog for each stroke.
    void dress(anyID member)
    {
        hand(member).chooseColor = [this, member, color = QColor(Qt::black)](const QColor& wish) mutable {
            if (random.bounded(6) == 0)
                color = people.chooseColor(member, wish);
            return color;
        };
        hand(member).chooseThickness = [this, member](qreal wish) { return people.chooseThickness(member, wish); };
    }

    company& people;
    QRandomGenerator random;
    std::vector<std::unique_ptr<randomuser>> users;
};

/// The number of the first member whose picture is not that of the first; 0 when all agree.
anyID firstToDiffer(const company& people)
{
    for (anyID member = 2; member <= people.size(); ++member) {
        if (people.canvasOf(member)->picture() != people.canvasOf(1)->picture())
            return member;
    }
    return 0;
}

/// What the member sees: the picture over its background.
QImage visible(const company& people, anyID member)
{
    return people.canvasOf(member)->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

QList<QPoint> differing(const QImage& a, const QImage& b)
{
    QList<QPoint> places;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y))
                places.append(QPoint(x, y));
        }
    }
    return places;
}

/// All deeds at the same time: what a member does is on its way while others act, and comes sooner to some than to
/// others. Returns what the members sent to one of the others, each by itself.
QMap<anyID, QList<QByteArray>> paintAtTheSameTime(company& people, painters& all, void (randomuser::*deed)(), int deeds)
{
    QMap<anyID, QList<QByteArray>> sent;
    mailbag bag(static_cast<quint32>(deeds));
    for (int i = 0; i < deeds; ++i) {
        const QList<letter> letters = all.act(all.any(), deed);
        for (const letter& one : letters) {
            if (one.to == (one.from == 1 ? 2 : 1))
                sent[one.from].append(one.text);
        }
        bag.put(letters);
        while (bag.size() > 10 * people.size())
            people.deliver(bag.takeNext());
    }
    while (bag.size() > 0)
        people.deliver(bag.takeNext());
    return sent;
}

/// Where the messages paint anything.
QImage touchedBy(const QList<QByteArray>& messages, const QString& untouchedPicture)
{
    paintscene canvas(size.width(), size.height(), nullptr);
    canvas.setImage(untouchedPicture, false);
    for (const QByteArray& message : messages) {
        if (const auto stroke = wire::readDraw(message.constData()))
            canvas.applyDraw(stroke->tool, QColor(stroke->color), stroke->thick, stroke->points);
    }
    return canvas.picture();
}

bool isBlank(const QImage& picture)
{
    QImage plain = picture;
    plain.fill(picture.pixel(0, 0));
    return plain == picture;
}

} // namespace

/// Whole sessions of 2 to 12 controllers, from the invitation on, whose pictures are compared pixel for pixel.
class tst_agreement : public QObject {
    Q_OBJECT

private slots:
    void oneWriterAtATimeLeavesAllPicturesEqual_data();
    void oneWriterAtATimeLeavesAllPicturesEqual();
    void allToolsAndEffectsWereOnTheWire();

    void writersInTheirOwnCornersAgree();
    void writersInOneColourAgreeInAnyOrder();
    void strokesAtTheSameTimeDifferOnlyWhereTheyMeet();
    void aClearedCanvasBringsAllTogetherAgain();

private:
    void count(const QList<letter>& letters);

    QMap<kelvortool, int> seen;
};

void tst_agreement::oneWriterAtATimeLeavesAllPicturesEqual_data()
{
    using startpicture = company::startpicture;
    QTest::addColumn<int>("members");
    QTest::addColumn<startpicture>("picture");
    for (const int members : {2, 3, 4, 5, 8, 12})
        QTest::addRow("%d participants", members) << members << startpicture::none;
    QTest::newRow("4 participants, over a picture") << 4 << startpicture::plain;
    QTest::newRow("3 participants, over a background") << 3 << startpicture::background;
}

void tst_agreement::oneWriterAtATimeLeavesAllPicturesEqual()
{
    QFETCH(const int, members);
    QFETCH(const company::startpicture, picture);
    company people(members, size);
    QVERIFY(people.startSession(picture));
    const QImage start = people.canvasOf(1)->picture();
    for (anyID member = 1; member <= members; ++member)
        QCOMPARE(visible(people, member) == people.files.picture(), picture != company::startpicture::none);
    painters all(people, static_cast<quint32>(members));
    int painted = 0;
    anyID writer = 1;
    for (int deed = 0; deed < deedsOfASession(); ++deed) {
        if (deed % 5 == 0)
            writer = all.any();
        const QList<letter> letters = all.act(writer);
        for (const letter& one : letters)
            people.deliver(one);
        count(letters);
        const anyID differing = firstToDiffer(people);
        QVERIFY2(differing == 0, qPrintable(QString("deed %1 of %2 at %3").arg(deed).arg(writer).arg(differing)));
        painted += people.canvasOf(1)->picture() != start ? 1 : 0;
    }
    QVERIFY2(painted > deedsOfASession() / 2, qPrintable(QString::number(painted)));
    QCOMPARE(people.host.outstanding, 0);
}

void tst_agreement::count(const QList<letter>& letters)
{
    for (const letter& one : letters) {
        if (const auto stroke = wire::readDraw(one.text.constData()))
            ++seen[static_cast<kelvortool>(stroke->tool)];
        else if (const auto other = wire::readExtendedDraw(one.text.constData()))
            ++seen[static_cast<kelvortool>(other->tool)];
    }
}

void tst_agreement::allToolsAndEffectsWereOnTheWire()
{
    for (char tool = static_cast<char>(kelvortool::clear); tool <= static_cast<char>(kelvortool::grayscale); ++tool) {
        // Its patterns are drawn by lot, by each for itself.
        if (static_cast<kelvortool>(tool) == kelvortool::airbrush)
            continue;
        QVERIFY2(seen.value(static_cast<kelvortool>(tool)) >= 20, qPrintable(QString::number(tool)));
    }
}

void tst_agreement::writersInTheirOwnCornersAgree()
{
    company people(4, QSize(200, 160));
    QVERIFY(people.startSession());
    painters all(people, 1);
    mailbag bag(1);
    QRandomGenerator random(1);
    const kelvortool tools[] = {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse,
                                kelvortool::eraser};
    for (int stroke = 0; stroke < 200; ++stroke) {
        const anyID member = all.any();
        const QPoint corner(member % 2 * 100, member / 3 * 80);
        const auto place = [&] { return corner + QPoint(10 + random.bounded(80), 10 + random.bounded(60)); };
        all.hand(member).take(tools[random.bounded(5)], QColor::fromRgb(random.generate()), 1 + random.bounded(9));
        QList<QPoint> path;
        while (path.size() < 25)
            path.append(place());
        all.hand(member).drag(path);
        bag.put(people.takeLetters());
        while (bag.size() > 50)
            people.deliver(bag.takeNext());
    }
    while (bag.size() > 0)
        people.deliver(bag.takeNext());
    QCOMPARE(firstToDiffer(people), anyID{0});
    QVERIFY(!isBlank(people.canvasOf(1)->picture()));
}

void tst_agreement::writersInOneColourAgreeInAnyOrder()
{
    company people(5);
    QVERIFY(people.startSession());
    painters all(people, 2);
    mailbag bag(2);
    QRandomGenerator random(2);
    const kelvortool tools[] = {kelvortool::pencil, kelvortool::line, kelvortool::rect, kelvortool::ellipse};
    for (int stroke = 0; stroke < 40; ++stroke) {
        const anyID member = all.any();
        all.hand(member).chooseColor = nullptr;
        all.hand(member).take(tools[random.bounded(4)], Qt::black, 1 + random.bounded(3));
        QList<QPoint> path;
        while (path.size() < 2 + stroke % 4)
            path.append(QPoint(random.bounded(size.width()), random.bounded(size.height())));
        all.hand(member).drag(path);
        bag.put(people.takeLetters());
    }
    while (bag.size() > 0)
        people.deliver(bag.takeAny());
    QCOMPARE(firstToDiffer(people), anyID{0});
    QVERIFY(!isBlank(people.canvasOf(1)->picture()));
}

void tst_agreement::strokesAtTheSameTimeDifferOnlyWhereTheyMeet()
{
    company people(4);
    QVERIFY(people.startSession());
    painters all(people, 3);
    const auto sent = paintAtTheSameTime(people, all, &randomuser::stroke, 20);
    const QTemporaryDir directory;
    const QString plain = directory.filePath("plain.png");
    QImage paper(size, QImage::Format_ARGB32);
    paper.fill(untouched);
    QVERIFY(paper.save(plain));
    QList<QImage> touched;
    for (const QList<QByteArray>& messages : sent)
        touched.append(touchedBy(messages, plain));
    const QImage first = people.canvasOf(1)->picture();
    for (anyID member = 2; member <= people.size(); ++member) {
        const QImage other = people.canvasOf(member)->picture();
        for (const QPoint& pos : differing(first, other)) {
            const auto wasThere = [&pos](const QImage& picture) { return picture.pixel(pos) != untouched; };
            QVERIFY(std::count_if(touched.cbegin(), touched.cend(), wasThere) >= 2);
        }
        const int percent = 100 * differing(first, other).size() / (size.width() * size.height());
        qInfo("After 20 strokes of four writers at a time %d %% of the pixels of 1 and %d differ.", percent, member);
    }
}

void tst_agreement::aClearedCanvasBringsAllTogetherAgain()
{
    company people(4);
    QVERIFY(people.startSession());
    painters all(people, 4);
    paintAtTheSameTime(people, all, &randomuser::act, 60);
    for (anyID member = 2; member <= people.size(); ++member) {
        const int count = differing(people.canvasOf(1)->picture(), people.canvasOf(member)->picture()).size();
        qInfo("After 60 deeds of all kinds of four writers at a time %d %% of the pixels of 1 and %d differ.",
              100 * count / (size.width() * size.height()), member);
    }
    QVERIFY(firstToDiffer(people) != 0);
    all.hand(2).take(kelvortool::notool);
    people.canvasOf(2)->clearCanvas(true);
    people.deliverAll();
    QCOMPARE(firstToDiffer(people), anyID{0});
}

QTEST_MAIN(tst_agreement)
#include "tst_agreement.moc"
