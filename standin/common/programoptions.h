#pragma once

#include <QCommandLineParser>
#include <QString>

/// The command line of a program of the stand-in: reports what is wrong in one sentence instead of ending the process,
/// and reads numbers with their limits. --help is answered by the parser itself.
class programoptions {
public:
    explicit programoptions(const QString& description);

    /// valueName is empty for a switch.
    void add(const QString& name, const QString& description, const QString& valueName = QString(),
             const QString& preset = QString());
    /// False when the command line is wrong; error() tells why. Shows the help and ends the process for --help.
    bool parse(const QStringList& arguments);

    bool isSet(const QString& name) const { return parser.isSet(name); }
    QString text(const QString& name) const { return parser.value(name); }
    QStringList texts(const QString& name) const { return parser.values(name); }
    /// The number, or least with error() set when the text is no number between the limits.
    int number(const QString& name, int least, int most);

    void fail(const QString& sentence);
    bool failed() const { return !problem.isEmpty(); }
    /// What went wrong first.
    QString error() const { return problem; }

private:
    QCommandLineParser parser;
    QString problem;
};

/// Says on standard error which program failed and why; returns the status of the process.
int reportFailure(const QString& sentence, int status = 1);
