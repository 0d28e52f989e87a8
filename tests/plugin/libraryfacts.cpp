#include "libraryfacts.h"

#include <QProcess>
#include <QRegularExpression>

namespace libraryfacts {

QByteArray output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    const bool ended = process.waitForFinished() && process.exitStatus() == QProcess::NormalExit;
    return ended && process.exitCode() == 0 ? process.readAllStandardOutput() : QByteArray();
}

bool isStripped(const QString& file)
{
    const QByteArray sections = output("readelf", {"-W", "-S", file});
    return sections.contains(" .dynsym ") && !sections.contains(" .symtab ") && !sections.contains(" .debug_");
}

QStringList neededVersions(const QString& file)
{
    const QString versions = QString::fromLatin1(output("readelf", {"-W", "-V", file}));
    static const QRegularExpression name("Name: (\\S+)  Flags");
    QStringList found;
    QRegularExpressionMatchIterator matches = name.globalMatch(versions);
    while (matches.hasNext())
        found.append(matches.next().captured(1));
    found.removeDuplicates();
    found.sort();
    return found;
}

} // namespace libraryfacts
