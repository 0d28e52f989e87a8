#pragma once

#include <QByteArray>
#include <QObject>
#include <QProcess>
#include <QQueue>

#include <optional>

/// A process that a Ctrl+C at the terminal does not reach: it strikes all of a group at once, and clients whose server
/// went first would complain. Whoever started the process ends it.
class quietprocess : public QProcess {
protected:
    void setupChildProcess() override;
};

/// A program of the stand-in that is played by lines: one command, one answer. Every wait has a deadline, and the
/// process never outlives this object.
class playedprocess : public QObject {
    Q_OBJECT

public:
    playedprocess(const QString& name, const QString& program, const QStringList& arguments, QObject* parent = nullptr);
    ~playedprocess() override;

    QString name() const { return ownName; }
    qint64 id() const { return process.processId(); }
    bool isRunning() const { return process.state() != QProcess::NotRunning; }

    /// The next line that the program says; empty when it ends, time runs out or interrupt() is called meanwhile.
    std::optional<QString> nextLine(int milliseconds);
    /// Gives a command and waits for its answer, without the leading "ok". Empty, with problem() set, otherwise.
    std::optional<QString> ask(const QString& command);
    QString problem() const { return failure; }

    /// Lets the program end by itself, then by force; gives its status, -1 after force or a crash.
    int end();
    /// Ends whatever is waited for.
    void interrupt();

    static constexpr int startTime = 20 * 1000; // milliseconds
    static constexpr int answerTime = 90 * 1000; ///< above the longest deadline of a played command
    static constexpr int endTime = 10 * 1000;

signals:
    void spoke();
    void finished();

private:
    void readLines();

    const QString ownName;
    quietprocess process;
    QByteArray incoming;
    QQueue<QString> lines;
    QString failure;
    bool interrupted = false;
};
