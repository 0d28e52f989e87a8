#include "playscript.h"

#include "standin/common/words.h"

#include <QRegularExpression>

namespace {

constexpr const char* names[] = {"Alice", "Bob", "Carla", "Dan", "Eva", "Finn", "Greta", "Hugo"};
constexpr int nameCount = int(sizeof(names) / sizeof(names[0]));

constexpr const char* homes[] = {"Town Square", "Sketches", "Coffee Corner", "Posters"};
constexpr int homeCount = int(sizeof(homes) / sizeof(homes[0]));

constexpr int mostPlayers = 99;

scriptplayer playerNumber(int index)
{
    scriptplayer player;
    player.name = index < nameCount ? QString::fromLatin1(names[index]) : QStringLiteral("Painter%1").arg(index + 1);
    player.channel = QLatin1String(homes[index % homeCount]);
    return player;
}

class scriptreader {
public:
    explicit scriptreader(int wantedPlayers)
        : wantedPlayers(wantedPlayers)
    {
    }

    // An empty text, or what is wrong with the line.
    QString read(const QString& line, int number);
    playscript result;

private:
    QString readPlayers(const QString& rest);
    QString readPlayer(const QString& rest);
    QString readCommand(const QString& line, int number);
    bool isKnown(const QString& who) const;
    void add(stepkind kind, int number, const QString& text);

    const int wantedPlayers;
};

QString scriptreader::read(const QString& line, int number)
{
    const QString word = line.section(QLatin1Char(' '), 0, 0);
    const QString rest = line.section(QLatin1Char(' '), 1).trimmed();
    if (word == QLatin1String("title"))
        result.title = rest;
    else if (word == QLatin1String("faulty"))
        result.faulty = true;
    else if (word == QLatin1String("players"))
        return readPlayers(rest);
    else if (word == QLatin1String("player"))
        return readPlayer(rest);
    else if (word == QLatin1String("note"))
        add(stepkind::note, number, rest);
    else if (word == QLatin1String("settle"))
        add(stepkind::settle, number, rest);
    else if (word == QLatin1String("equal"))
        add(stepkind::equal, number, rest);
    else if (word == QLatin1String("place"))
        add(stepkind::place, number, rest);
    else if (word == QLatin1String("server:"))
        add(stepkind::server, number, rest);
    else if (word == QLatin1String("same")) {
        add(stepkind::same, number, rest);
        result.steps.last().who = rest;
    } else
        return readCommand(line, number);
    return QString();
}

QString scriptreader::readPlayers(const QString& rest)
{
    bool readable = false;
    const int own = rest.toInt(&readable);
    if (!readable || own < 1 || own > mostPlayers)
        return QStringLiteral("'players' takes a number from 1 to %1").arg(mostPlayers);
    const int count = qMax(own, wantedPlayers);
    while (result.players.size() < count)
        result.players.append(playerNumber(result.players.size()));
    return QString();
}

QString scriptreader::readPlayer(const QString& rest)
{
    const std::optional<QStringList> words = splitWords(rest);
    if (!words || words->isEmpty())
        return QStringLiteral("'player' takes a name and properties");
    scriptplayer player = playerNumber(result.players.size());
    player.name = words->first();
    for (int i = 1; i < words->size(); ++i) {
        const QString key = words->at(i).section(QLatin1Char('='), 0, 0);
        const QString value = words->at(i).section(QLatin1Char('='), 1);
        if (key == QLatin1String("channel"))
            player.channel = value;
        else if (key == QLatin1String("platform"))
            player.platform = value;
        else if (key == QLatin1String("plugin"))
            player.hasPlugin = value != QLatin1String("none");
        else if (key == QLatin1String("away"))
            player.away = value == QLatin1String("yes");
        else if (key == QLatin1String("setting"))
            player.settings.append(value);
        else
            return QStringLiteral("a player has no property '%1'").arg(key);
    }
    result.players.append(player);
    return QString();
}

QString scriptreader::readCommand(const QString& line, int number)
{
    static const QRegularExpression form(QStringLiteral("^(\\w+)(?: for (\\w+))?: *(.+?)(?: => (.+))?$"));
    const QRegularExpressionMatch match = form.match(line);
    if (!match.hasMatch())
        return QStringLiteral("this is no step: %1").arg(line);
    scriptstep step;
    step.kind = stepkind::command;
    step.line = number;
    step.who = match.captured(1);
    step.whom = match.captured(2);
    step.text = match.captured(3);
    if (match.lastCapturedIndex() >= 4)
        step.expected = match.captured(4);
    if (!isKnown(step.who) || (!step.whom.isEmpty() && !isKnown(step.whom)))
        return QStringLiteral("nobody is called '%1'").arg(isKnown(step.who) ? step.whom : step.who);
    result.steps.append(step);
    return QString();
}

bool scriptreader::isKnown(const QString& who) const
{
    if (who == QLatin1String("all") || who == QLatin1String("guests"))
        return true;
    for (const scriptplayer& player : result.players) {
        if (player.name == who)
            return true;
    }
    return false;
}

void scriptreader::add(stepkind kind, int number, const QString& text)
{
    scriptstep step;
    step.kind = kind;
    step.line = number;
    step.text = text;
    result.steps.append(step);
}

} // namespace

std::optional<playscript> readScript(const QString& text, int wantedPlayers, QString* error)
{
    scriptreader reader(wantedPlayers);
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i) {
        const QString line = lines.at(i).trimmed();
        if (line.isEmpty() || line.startsWith(QLatin1Char('#')))
            continue;
        const QString problem = reader.read(line, i + 1);
        if (!problem.isEmpty()) {
            *error = QStringLiteral("Line %1: %2.").arg(i + 1).arg(problem);
            return std::nullopt;
        }
    }
    if (reader.result.players.isEmpty()) {
        *error = QStringLiteral("The script has no players.");
        return std::nullopt;
    }
    return reader.result;
}
