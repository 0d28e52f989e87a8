#include "paintinggroup.h"

#include "performance.h"

#include <QFile>

#include <algorithm>
#include <cmath>

#include <unistd.h>

namespace {

// The last lines clear the way for pencil strokes in small places of their own.
const char* const opening = R"(
players 2
Alice for guests: wait client {name}
Alice: open menu
Alice for guests: wait row {name} in invitationdialog "[Client has kelvor running]"
Alice: fill widthedit 1600 in invitationdialog
Alice: fill heightedit 800 in invitationdialog
Alice for guests: row {name} double
guests: answer Yes
Alice for guests: wait row {name} in invitationdialog "Client accepted invite"
Alice: click OK in invitationdialog
all: wait window whiteboard
Alice for guests: wait row {name} in whiteboard
all: place whiteboard 0,0,1900,1040
all: tool pencil
all: thickness 1
)";

QVector<qint64> timesIn(const QString& answer)
{
    QVector<qint64> times;
    const QStringList texts = answer.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString& text : texts)
        times.append(text.toLongLong());
    return times;
}

// Of all threads of a process, in seconds: the fields 14 and 15, counted behind the name, which may hold blanks.
double processorTimeOf(const playedprocess& process)
{
    QFile file(QStringLiteral("/proc/%1/stat").arg(process.id()));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = file.readAll();
    const QList<QByteArray> fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    return (fields.value(11).toDouble() + fields.value(12).toDouble()) / double(::sysconf(_SC_CLK_TCK));
}

} // namespace

bool paintinggroup::open(int participants, QString* error)
{
    const std::optional<playscript> script = readScript(QLatin1String(opening), participants, error);
    if (!script)
        return false;
    performance beginning(*script, &boards, boards.workDirectory());
    if (beginning.play())
        return true;
    *error = beginning.problem();
    return false;
}

std::optional<strokedelays> paintinggroup::paint(int painters, double pace, double seconds, QString* error)
{
    const int people = int(boards.clients().size());
    const int each = qMax(1, int(std::lround(pace * seconds / painters)));
    for (int i = 0; i < painters; ++i) {
        if (!tell((i + 1) % people, QStringLiteral("strokes watch %1 %2 %3").arg(i).arg(painters).arg(each), error))
            return std::nullopt;
    }
    for (int i = 0; i < painters; ++i) {
        const QString series = QStringLiteral("strokes paint %1 %2 %3 %4").arg(i).arg(painters).arg(each);
        if (!tell(i, series.arg(pace / painters), error))
            return std::nullopt;
    }
    QVector<QPair<qint64, double>> strokes;
    for (int i = 0; i < painters; ++i) {
        QString due;
        QString seen;
        if (!tell(i, QStringLiteral("within 80 strokes due"), error, &due)
            || !tell((i + 1) % people, QStringLiteral("within 80 strokes seen"), error, &seen))
            return std::nullopt;
        const QVector<qint64> from = timesIn(due);
        const QVector<qint64> to = timesIn(seen);
        for (int k = 0; k < each; ++k) {
            if (to.value(k) <= from.value(k)) {
                *error = QStringLiteral("a stroke was seen before it was painted");
                return std::nullopt;
            }
            strokes.append({from.at(k), double(to.at(k) - from.at(k)) / 1e6});
        }
    }
    std::sort(strokes.begin(), strokes.end());
    strokedelays delays;
    for (const auto& stroke : qAsConst(strokes))
        delays.append(stroke.second);
    return clear(error) ? std::optional<strokedelays>(delays) : std::nullopt;
}

double paintinggroup::processorTime() const
{
    double sum = processorTimeOf(*boards.server());
    for (const auto& client : boards.clients())
        sum += processorTimeOf(*client);
    return sum;
}

bool paintinggroup::tell(int participant, const QString& command, QString* error, QString* answer) const
{
    playedprocess* const client = boards.clients().at(size_t(participant)).get();
    const std::optional<QString> given = client->ask(command);
    if (!given)
        *error = QStringLiteral("%1: %2: %3").arg(client->name(), command, client->problem());
    else if (answer)
        *answer = *given;
    return given.has_value();
}

// The host's command arrives behind all strokes that others have seen.
bool paintinggroup::clear(QString* error) const
{
    if (!tell(0, QStringLiteral("click Clear in whiteboard"), error))
        return false;
    for (int i = 0; i < int(boards.clients().size()); ++i) {
        if (!tell(i, QStringLiteral("wait pixel 0,0 #ffffff"), error))
            return false;
    }
    return true;
}
