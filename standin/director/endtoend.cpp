// Measures whole sessions on this machine, from the mouse to the peers' windows: the strokes a second that a group
// sustains, and how long a stroke is on its way. Prints a table.
#include "paintinggroup.h"

#include "standin/common/programoptions.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <QThread>

#include <algorithm>
#include <cstdio>

namespace {

constexpr double firstPace = 50; // strokes a second
constexpr int halvings = 3; // of the gap between a pace that is sustained and one that is not
constexpr double longestDelay = 100; // milliseconds; from here on strokes count as queued
constexpr double calmPace = 10;
constexpr int calmSeconds = 30;

struct figures {
    double sustained = 0;
    strokedelays calm; ///< one participant paints
    strokedelays busy; ///< all paint at half of the sustained pace
    double processorTime = 0; ///< that a stroke then costs all processes together, in milliseconds
};

void say(const QString& text)
{
    QTextStream(stdout) << text << '\n';
    std::fflush(stdout);
}

double quantile(strokedelays delays, double share)
{
    std::sort(delays.begin(), delays.end());
    return delays.at(qMin(delays.size() - 1, int(delays.size() * share)));
}

// Whether strokes at the end of the series took no longer than that: in a queue that grows they would.
bool keepsUp(const strokedelays& delays) { return quantile(delays.mid(delays.size() * 3 / 4), 0.5) <= longestDelay; }

class measurement {
public:
    measurement(paintinggroup* group, int participants, double seconds)
        : group(group)
        , participants(participants)
        , seconds(seconds)
    {
    }

    bool run(QString* error)
    {
        error->clear();
        reason = error;
        found.calm = paint(1, calmPace, calmSeconds);
        found.sustained = sustainedPace();
        const double before = group->processorTime();
        found.busy = paint(participants, qMax(firstPace, found.sustained) / 2, seconds);
        found.processorTime = (group->processorTime() - before) * 1000 / qMax(1, found.busy.size());
        return error->isEmpty();
    }
    const figures& result() const { return found; }

private:
    strokedelays paint(int painters, double pace, double duration)
    {
        return reason->isEmpty() ? group->paint(painters, pace, duration, reason).value_or(strokedelays())
                                 : strokedelays();
    }

    // What others on the machine do for a moment is no verdict: a pace gets a second try.
    bool isSustained(double pace)
    {
        for (int i = 0; i < 2 && reason->isEmpty(); ++i) {
            const strokedelays delays = paint(participants, pace, seconds);
            if (!delays.isEmpty() && keepsUp(delays))
                return true;
        }
        return false;
    }

    double sustainedPace()
    {
        const double mostPace = paintinggroup::mostStrokes / seconds;
        double sustained = 0;
        double tooMuch = firstPace;
        while (tooMuch <= mostPace && isSustained(tooMuch)) {
            sustained = tooMuch;
            tooMuch *= 2;
        }
        for (int i = 0; i < halvings; ++i) {
            const double between = (sustained + tooMuch) / 2;
            (between <= mostPace && isSustained(between) ? sustained : tooMuch) = between;
        }
        return sustained;
    }

    paintinggroup* const group;
    const int participants;
    const double seconds;
    QString* reason = nullptr;
    figures found;
};

QString inMilliseconds(const strokedelays& delays)
{
    return QStringLiteral("%1 | %2").arg(quantile(delays, 0.5), 0, 'f', 1).arg(quantile(delays, 0.99), 0, 'f', 1);
}

QString load()
{
    QFile file(QStringLiteral("/proc/loadavg"));
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()).section(QLatin1Char(' '), 0, 0)
                                          : QStringLiteral("unknown");
}

// The sizes of the groups; what is wrong stands in the parser's error().
QVector<int> groupsIn(programoptions* parser)
{
    QVector<int> groups;
    const QStringList texts = parser->texts(QStringLiteral("participants"));
    for (const QString& text : texts) {
        groups.append(text.toInt());
        if (groups.last() < 2 || groups.last() > 99)
            parser->fail(QStringLiteral("Option --participants takes a number from 2 to 99, not '%1'.").arg(text));
    }
    return groups.isEmpty() ? QVector<int>{2, 8, 16} : groups;
}

bool measure(const stageprops& props, int participants, double seconds, QString* error)
{
    const QString loadBefore = load();
    paintinggroup group(props);
    measurement measured(&group, participants, seconds);
    if (!group.open(participants, error) || !measured.run(error) || !group.close(error))
        return false;
    const figures& found = measured.result();
    say(QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 | %7 |")
            .arg(participants)
            .arg(found.sustained, 0, 'f', 0)
            .arg(found.sustained * (participants - 1), 0, 'f', 0)
            .arg(inMilliseconds(found.calm), inMilliseconds(found.busy))
            .arg(found.processorTime, 0, 'f', 2)
            .arg(loadBefore));
    return true;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("endtoend"));
    programoptions parser(QStringLiteral(
        "Measures sessions of the stand-in on this machine: strokes of 19 positions, a message each, from the moment "
        "when the press was due until a peer's window shows them. Prints a table, a line a group."));
    parser.add(QStringLiteral("plugin"), QStringLiteral("Library of the plugin that the clients load."),
               QStringLiteral("FILE"));
    parser.add(QStringLiteral("participants"),
               QStringLiteral("Size of a group; may be given repeatedly (default 2, 8 and 16)."), QStringLiteral("N"));
    parser.add(QStringLiteral("seconds"), QStringLiteral("How long each pace is held (default 3)."),
               QStringLiteral("N"), QStringLiteral("3"));
    parser.parse(QCoreApplication::arguments());
    const int seconds = parser.number(QStringLiteral("seconds"), 1, 60);
    const QVector<int> groups = groupsIn(&parser);
    if (!parser.failed() && !QFileInfo(parser.text(QStringLiteral("plugin"))).isFile())
        parser.fail(QStringLiteral("Option --plugin is needed: the library that the clients load."));
    if (parser.failed())
        return reportFailure(parser.error());

    stageprops props;
    props.programs = QCoreApplication::applicationDirPath();
    props.plugins = QStringList{parser.text(QStringLiteral("plugin"))};
    say(QStringLiteral("%1 processors\n").arg(QThread::idealThreadCount()));
    say(QStringLiteral("| participants | strokes/s sustained | messages/s delivered | calm: median ms | 99 % ms | half "
                       "load: median ms | 99 % ms | processor ms a stroke | load average before |"));
    say(QStringLiteral("|---|---|---|---|---|---|---|---|---|"));
    for (const int participants : groups) {
        QTextStream(stderr) << "Measuring " << participants << " participants, which takes one to three minutes ...\n";
        QString problem;
        if (!measure(props, participants, seconds, &problem))
            return reportFailure(QStringLiteral("%1 participants: %2").arg(QString::number(participants), problem));
    }
    return 0;
}
