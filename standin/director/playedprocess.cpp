#include "playedprocess.h"

#include <QEventLoop>
#include <QTimer>

#include <unistd.h>

void quietprocess::setupChildProcess() { ::setpgid(0, 0); }

playedprocess::playedprocess(const QString& name, const QString& program, const QStringList& arguments, QObject* parent)
    : QObject(parent)
    , ownName(name)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    connect(&process, &QProcess::readyReadStandardOutput, this, &playedprocess::readLines);
    connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &playedprocess::finished);
    connect(&process, &QProcess::errorOccurred, this, &playedprocess::finished);
    process.start(program, arguments);
}

playedprocess::~playedprocess()
{
    disconnect(&process, nullptr, this, nullptr);
    end();
}

std::optional<QString> playedprocess::nextLine(int milliseconds)
{
    if (lines.isEmpty() && isRunning() && !interrupted) {
        QEventLoop loop;
        connect(this, &playedprocess::spoke, &loop, &QEventLoop::quit);
        connect(this, &playedprocess::finished, &loop, &QEventLoop::quit);
        QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return lines.isEmpty() || interrupted ? std::nullopt : std::optional<QString>(lines.dequeue());
}

std::optional<QString> playedprocess::ask(const QString& command)
{
    process.write(command.toUtf8() + '\n');
    const std::optional<QString> answer = nextLine(answerTime);
    if (!answer)
        failure = isRunning() ? QStringLiteral("no answer") : QStringLiteral("the program ended");
    else if (*answer == QLatin1String("ok") || answer->startsWith(QLatin1String("ok ")))
        return answer->mid(3);
    else
        failure = answer->section(QLatin1Char(' '), 1);
    return std::nullopt;
}

int playedprocess::end()
{
    if (isRunning()) {
        // The end of its input is what each of these programs takes for the end of its play.
        process.closeWriteChannel();
        if (!process.waitForFinished(endTime)) {
            process.terminate();
            if (!process.waitForFinished(endTime))
                process.kill();
            process.waitForFinished(endTime);
            return -1;
        }
    }
    return process.exitStatus() == QProcess::NormalExit && process.error() != QProcess::FailedToStart
        ? process.exitCode()
        : -1;
}

void playedprocess::interrupt()
{
    interrupted = true;
    emit finished();
}

void playedprocess::readLines()
{
    incoming += process.readAllStandardOutput();
    for (int end = incoming.indexOf('\n'); end >= 0; end = incoming.indexOf('\n')) {
        lines.enqueue(QString::fromUtf8(incoming.left(end)));
        incoming.remove(0, end + 1);
        emit spoke();
    }
}
