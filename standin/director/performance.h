#pragma once

#include "playscript.h"
#include "scoretable.h"
#include "stage.h"

#include <QMap>
#include <QObject>

/// Plays one script on one stage, and keeps the score.
class performance : public QObject {
    Q_OBJECT

public:
    /// shots: where {shots} in the script's lines points to.
    performance(const playscript& script, stage* boards, const QString& shots, QObject* parent = nullptr);

    /// False when a step failed; problem() tells which and why.
    bool play();
    QString problem() const { return failure; }
    const scoretable& score() const { return table; }

private:
    bool raiseCurtain();
    bool perform(const scriptstep& step);
    bool command(const scriptstep& step);
    bool tell(const scriptstep& step, playedprocess* player, const QString& text);
    bool settle();
    bool compare(const QString& who);
    bool compareFiles(const QString& files);
    QString withShots(const QString& text) const;
    bool place(const QString& window);
    bool readCounts();
    QVector<playedprocess*> players(const QString& who) const;
    bool fail(const QString& reason);

    const playscript script;
    stage* const boards;
    const QString shots;
    QStringList gone; ///< players who were told to quit
    QString failure;
    scoretable table;
};
