#include "probing.h"

#include "median.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>

#include <limits>

namespace {

// Of everything that the process does only the call of this function is counted.
const char* const countedFunction = "countedWork*";

constexpr int firstCalls = 9;

QByteArray output(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(-1);
    const QByteArray text = process.readAll();
    if (process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        qFatal("%s %s: %s", qPrintable(program), qPrintable(arguments.join(QLatin1Char(' '))), text.constData());
    return text;
}

double numberBehind(const QString& mark, const QByteArray& text)
{
    const QRegularExpression pattern(mark + QString::fromLatin1("\\s*:\\s*([-+.e\\d]+)"));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(text));
    if (!match.hasMatch())
        qFatal("no \"%s\" in: %s", qPrintable(mark), text.constData());
    return match.captured(1).toDouble();
}

QString wordFor(quantity of)
{
    switch (of) {
    case quantity::instructions:
        return QString::fromLatin1("instructions");
    case quantity::heap:
        return QString::fromLatin1("heap");
    case quantity::files:
        return QString::fromLatin1("files");
    case quantity::seconds:
    case quantity::firstSeconds:
        break;
    }
    return QString::fromLatin1("seconds");
}

double countInstructions(const QString& program, const QStringList& arguments)
{
    const QString valgrind = QStandardPaths::findExecutable(QString::fromLatin1("valgrind"));
    if (valgrind.isEmpty())
        return std::numeric_limits<double>::quiet_NaN();
    const QStringList options{QString::fromLatin1("--tool=callgrind"),
                              QString::fromLatin1("--callgrind-out-file=/dev/null"),
                              QString::fromLatin1("--toggle-collect=") + QLatin1String(countedFunction), program};
    const double count = numberBehind(QString::fromLatin1("Collected"), output(valgrind, options + arguments));
    // The function's name is told to valgrind as a text, which nothing else would miss.
    if (count <= 0)
        qFatal("valgrind counted nothing in %s", countedFunction);
    return count;
}

} // namespace

double probe(const std::string& rowName, const std::string& contenderName, quantity of, bool plainly)
{
    const QString program = QString::fromLatin1(KELVOR_PROBE);
    const QStringList arguments{wordFor(of), QString::fromStdString(rowName), QString::fromStdString(contenderName)};
    if (of == quantity::instructions && !plainly)
        return countInstructions(program, arguments);
    std::vector<double> values;
    do {
        values.push_back(numberBehind(wordFor(of), output(program, arguments)));
    } while (of == quantity::firstSeconds && !plainly && values.size() < firstCalls);
    return medianOf(values);
}
