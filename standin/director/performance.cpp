#include "performance.h"

#include "picturecompare.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <QTimer>

#include <cstdio>

namespace {

constexpr int settleTime = 20 * 1000; // milliseconds
constexpr int settlePoll = 20;
constexpr int tallestWindow = 460; // pixels: room for the pictures of the scripts, and little else

void say(const QString& line)
{
    QTextStream(stdout) << line << '\n';
    std::fflush(stdout);
}

void pause(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

QMap<int, int> countsIn(const QJsonObject& object)
{
    QMap<int, int> counts;
    for (auto entry = object.begin(); entry != object.end(); ++entry)
        counts.insert(entry.key().toInt(), entry.value().toInt());
    return counts;
}

} // namespace

performance::performance(const playscript& script, stage* boards, const QString& shots, QObject* parent)
    : QObject(parent)
    , script(script)
    , boards(boards)
    , shots(shots)
{
}

bool performance::play()
{
    if (!raiseCurtain())
        return false;
    for (const scriptstep& step : script.steps) {
        if (!perform(step)) {
            failure = QStringLiteral("Line %1: %2").arg(step.line).arg(failure);
            return false;
        }
    }
    return script.faulty ? readCounts() : settle();
}

bool performance::raiseCurtain()
{
    if (!boards->startServer(&failure))
        return false;
    for (int i = 0; i < script.players.size(); ++i) {
        if (!boards->startClient(script.players.at(i), boards->placeFor(i, script.players.size()), &failure))
            return false;
        table.note(script.players.at(i).name, QString());
    }
    return true;
}

bool performance::perform(const scriptstep& step)
{
    switch (step.kind) {
    case stepkind::note:
        say(QStringLiteral("  - ") + step.text);
        return true;
    case stepkind::server:
        return boards->server()->ask(step.text) || fail(boards->server()->problem());
    case stepkind::command:
        return command(step);
    case stepkind::settle:
        return settle();
    case stepkind::same:
        return compare(step.who);
    case stepkind::equal:
        return compareFiles(withShots(step.text));
    case stepkind::place:
        return place(step.text);
    }
    return false;
}

bool performance::command(const scriptstep& step)
{
    const QVector<playedprocess*> speakers = players(step.who);
    for (playedprocess* speaker : speakers) {
        const QVector<playedprocess*> about =
            step.whom.isEmpty() ? QVector<playedprocess*>{speaker} : players(step.whom);
        for (const playedprocess* one : about) {
            QString text = withShots(step.text);
            text.replace(QStringLiteral("{name}"), one->name());
            if (!tell(step, speaker, text))
                return false;
        }
    }
    return true;
}

bool performance::tell(const scriptstep& step, playedprocess* player, const QString& text)
{
    table.note(player->name(), text);
    if (text == QLatin1String("quit")) {
        // What was counted until then stays in the table.
        readCounts();
        gone.append(player->name());
    }
    const std::optional<QString> answer = player->ask(text);
    if (!answer)
        return fail(QStringLiteral("%1: %2: %3").arg(player->name(), text, player->problem()));
    if (step.expected && !answer->contains(*step.expected))
        return fail(QStringLiteral("%1: %2 gave '%3', not '%4'").arg(player->name(), text, *answer, *step.expected));
    return true;
}

bool performance::settle()
{
    QElapsedTimer clock;
    clock.start();
    while (readCounts()) {
        if (table.isBalanced())
            return true;
        if (clock.elapsed() > settleTime)
            return fail(QStringLiteral("not everything that was sent has arrived"));
        pause(settlePoll);
    }
    return false;
}

bool performance::compare(const QString& who)
{
    if (!settle())
        return false;
    QStringList files;
    QStringList names;
    const QVector<playedprocess*> painters = players(who);
    for (playedprocess* painter : painters) {
        names.append(painter->name());
        files.append(QStringLiteral("%1/picture-%2.png").arg(shots, painter->name()));
        if (!painter->ask(QStringLiteral("picture ") + files.last()))
            return fail(QStringLiteral("%1: %2").arg(painter->name(), painter->problem()));
    }
    int worst = 0;
    for (int i = 1; i < files.size() && worst >= 0; ++i) {
        const int different = differentPixels(files.first(), files.at(i));
        worst = different < 0 ? different : qMax(worst, different);
    }
    table.addComparison(names, worst);
    return worst == 0 || fail(QStringLiteral("the pictures of %1 differ").arg(names.join(QStringLiteral(", "))));
}

bool performance::compareFiles(const QString& files)
{
    const QString one = files.section(QLatin1Char(' '), 0, 0);
    const QString other = files.section(QLatin1Char(' '), 1);
    return differentPixels(one, other) == 0 || fail(QStringLiteral("%1 and %2 differ").arg(one, other));
}

QString performance::withShots(const QString& text) const
{
    return QString(text).replace(QStringLiteral("{shots}"), shots);
}

bool performance::place(const QString& window)
{
    QVector<playedprocess*> having;
    const QVector<playedprocess*> present = players(QStringLiteral("all"));
    for (playedprocess* player : present) {
        const std::optional<QString> titles = player->ask(QStringLiteral("windows ") + window);
        if (titles && !titles->isEmpty())
            having.append(player);
    }
    for (int i = 0; i < having.size(); ++i) {
        const QRect at = boards->placeFor(i, having.size());
        const QString command = QStringLiteral("place %1 %2,%3,%4,%5")
                                    .arg(window)
                                    .arg(at.x())
                                    .arg(at.y())
                                    .arg(at.width())
                                    .arg(qMin(at.height(), tallestWindow));
        if (!having.at(i)->ask(command))
            return fail(QStringLiteral("%1: %2").arg(having.at(i)->name(), having.at(i)->problem()));
    }
    return true;
}

bool performance::readCounts()
{
    const QVector<playedprocess*> present = players(QStringLiteral("all"));
    for (playedprocess* player : present) {
        const std::optional<QString> answer = player->ask(QStringLiteral("counts"));
        if (!answer)
            return fail(QStringLiteral("%1: %2").arg(player->name(), player->problem()));
        const QJsonObject counts = QJsonDocument::fromJson(answer->toUtf8()).object();
        table.setCounts(player->name(), countsIn(counts.value(QStringLiteral("sent")).toObject()),
                        countsIn(counts.value(QStringLiteral("received")).toObject()));
    }
    return true;
}

QVector<playedprocess*> performance::players(const QString& who) const
{
    QVector<playedprocess*> found;
    const QStringList names = who.split(QLatin1Char(' '));
    for (const auto& player : boards->clients()) {
        const bool isFirst = player == boards->clients().front();
        if (gone.contains(player->name()))
            continue;
        if (who == QLatin1String("all") || names.contains(player->name())
            || (who == QLatin1String("guests") && !isFirst))
            found.append(player.get());
    }
    return found;
}

bool performance::fail(const QString& reason)
{
    failure = reason;
    return false;
}
