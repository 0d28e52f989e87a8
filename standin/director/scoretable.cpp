#include "scoretable.h"

namespace {

constexpr const char* kindNames[] = {
    "",
    "invite",
    "invitelist",
    "channelInvitelist",
    "acceptlist",
    "rejectlist",
    "clientInvited",
    "channelInvited",
    "clientTakenBack",
    "channelTakenBack",
    "clientAcceptedInvite",
    "clientRejectedInvite",
    "clientRejectedInviteVersion",
    "accept",
    "reject",
    "rejectVersion",
    "start",
    "draw",
    "logout",
    "extendedDraw",
    "downloadFinished",
    "takeBack",
    "ping",
    "pong",
    "busy",
};
constexpr int kindCount = int(sizeof(kindNames) / sizeof(kindNames[0]));

QString nameOf(int kind)
{
    return kind > 0 && kind < kindCount ? QString::fromLatin1(kindNames[kind]) : QStringLiteral("kind %1").arg(kind);
}

bool isEffect(const QString& button)
{
    static const QStringList effects{QStringLiteral("Swap RGB"),          QStringLiteral("Invert pixels"),
                                     QStringLiteral("Flip horizontally"), QStringLiteral("Flip Vertically"),
                                     QStringLiteral("Grayscale"),         QStringLiteral("Clear")};
    return effects.contains(button);
}

} // namespace

void scoretable::note(const QString& player, const QString& command)
{
    if (!order.contains(player))
        order.append(player);
    const QString verb = command.section(QLatin1Char(' '), 0, 0);
    const QString rest = command.section(QLatin1Char(' '), 1);
    if (verb == QLatin1String("tool"))
        tools[player] = rest;
    else if (verb == QLatin1String("drag") || verb == QLatin1String("release"))
        ++strokes[player][tools.value(player, QStringLiteral("none"))];
    else if (verb == QLatin1String("pointer"))
        notePointer(player, rest.split(QLatin1Char(' ')));
    else if (verb == QLatin1String("click")) {
        const QString button = rest.section(QStringLiteral(" in "), 0, 0).remove(QLatin1Char('"'));
        if (isEffect(button))
            ++strokes[player][button];
    }
}

// The pointer takes up tools by their buttons, and uses them on the canvas.
void scoretable::notePointer(const QString& player, const QStringList& words)
{
    static const QStringList buttons{QStringLiteral("Select"), QStringLiteral("Pencil"),  QStringLiteral("Line"),
                                     QStringLiteral("Rect"),   QStringLiteral("Ellipse"), QStringLiteral("Eraser"),
                                     QStringLiteral("Text"),   QStringLiteral("Fill")};
    if (words.value(1) == QLatin1String("canvas"))
        ++strokes[player][tools.value(player, QStringLiteral("none"))];
    else if (words.value(1) == QLatin1String("button") && buttons.contains(words.value(2)))
        tools[player] = words.value(2).toLower();
}

void scoretable::addComparison(const QStringList& names, int differentPixels)
{
    const bool goesOn = !comparisons.isEmpty() && comparisons.last().names == names
        && comparisons.last().differentPixels == 0 && differentPixels == 0;
    if (goesOn)
        ++comparisons.last().times;
    else
        comparisons.append({names, differentPixels, 1});
}

void scoretable::setCounts(const QString& player, const QMap<int, int>& sent, const QMap<int, int>& received)
{
    counts[player] = {sent, received};
}

bool scoretable::isBalanced() const
{
    for (int kind = 0; kind < 256; ++kind) {
        if (total(kind, &traffic::sent) != total(kind, &traffic::received))
            return false;
    }
    return true;
}

bool scoretable::allEqual() const
{
    for (const comparison& one : comparisons) {
        if (one.differentPixels != 0)
            return false;
    }
    return true;
}

QString scoretable::print() const
{
    QString text;
    for (const QString& player : order) {
        QStringList painted;
        const QMap<QString, int> used = strokes.value(player);
        for (auto tool = used.begin(); tool != used.end(); ++tool)
            painted.append(QStringLiteral("%1 %2").arg(tool.value()).arg(tool.key()));
        text += QStringLiteral("  %1  %2\n")
                    .arg(player, -10)
                    .arg(painted.isEmpty() ? QStringLiteral("painted nothing")
                                           : QStringLiteral("painted ") + painted.join(QStringLiteral(", ")));
    }
    for (const comparison& one : comparisons) {
        const QString verdict = one.differentPixels == 0
            ? QStringLiteral("equal, compared %1 times").arg(one.times)
            : QStringLiteral("DIFFERENT in %1 pixels").arg(one.differentPixels);
        text += QStringLiteral("  pictures of %1: %2\n").arg(one.names.join(QStringLiteral(", ")), verdict);
    }
    return text + printTraffic();
}

int scoretable::total(int kind, QMap<int, int> traffic::*direction) const
{
    int sum = 0;
    for (const traffic& one : counts)
        sum += (one.*direction).value(kind);
    return sum;
}

QString scoretable::printTraffic() const
{
    QString text = QStringLiteral("  %1 %2 %3\n")
                       .arg(QStringLiteral("message"), -28)
                       .arg(QStringLiteral("sent"), 6)
                       .arg(QStringLiteral("arrived"), 8);
    for (int kind = 0; kind < 256; ++kind) {
        const int sent = total(kind, &traffic::sent);
        const int received = total(kind, &traffic::received);
        if (sent != 0 || received != 0)
            text += QStringLiteral("  %1 %2 %3%4\n")
                        .arg(nameOf(kind), -28)
                        .arg(sent, 6)
                        .arg(received, 8)
                        .arg(sent == received ? QString() : QStringLiteral("  <-- not the same"));
    }
    return text;
}
