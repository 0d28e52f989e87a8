#include "programoptions.h"

#include <QCoreApplication>
#include <QTextStream>

programoptions::programoptions(const QString& description)
{
    parser.setApplicationDescription(description);
    parser.addHelpOption();
}

void programoptions::add(const QString& name, const QString& description, const QString& valueName,
                         const QString& preset)
{
    parser.addOption(QCommandLineOption(name, description, valueName, preset));
}

bool programoptions::parse(const QStringList& arguments)
{
    if (!parser.parse(arguments)) {
        fail(parser.errorText());
        return false;
    }
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(0);
    if (!parser.positionalArguments().isEmpty()) {
        fail(QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().first()));
        return false;
    }
    return true;
}

int programoptions::number(const QString& name, int least, int most)
{
    bool readable = false;
    const int value = parser.value(name).toInt(&readable);
    if (readable && value >= least && value <= most)
        return value;
    fail(QStringLiteral("Option --%1 takes a number from %2 to %3, not '%4'.")
             .arg(name)
             .arg(least)
             .arg(most)
             .arg(parser.value(name)));
    return least;
}

void programoptions::fail(const QString& sentence)
{
    if (problem.isEmpty())
        problem = sentence;
}

int reportFailure(const QString& sentence, int status)
{
    QTextStream(stderr) << QCoreApplication::applicationName() << ": " << sentence << '\n';
    return status;
}
