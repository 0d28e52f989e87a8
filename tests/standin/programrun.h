#pragma once

#include <QProcess>
#include <QStringList>

/// What a program of the stand-in did when it was run to its end.
struct programrun {
    int status = -1; ///< -1 after a crash or when it did not end
    QString output;
    QString errors;
};

/// Runs one to its end. Its input stays open behind what is given: the end of it would end the program at once.
inline programrun runProgram(const QString& program, const QStringList& arguments,
                             const QByteArray& input = QByteArray())
{
    QProcess process;
    process.start(QStringLiteral(PROGRAMS "/") + program, arguments);
    process.write(input);
    programrun run;
    if (!process.waitForFinished(30 * 1000)) {
        process.kill();
        process.waitForFinished();
    } else if (process.exitStatus() == QProcess::NormalExit) {
        run.status = process.exitCode();
    }
    run.output = QString::fromUtf8(process.readAllStandardOutput());
    run.errors = QString::fromUtf8(process.readAllStandardError());
    return run;
}
