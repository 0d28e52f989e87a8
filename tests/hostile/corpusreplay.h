#pragma once

#include "fuzz/targets/fuzztarget.h"

#include <QObject>

/// One fuzz target without a fuzzer: its corpus, and seeded mutations of it. Whatever is unsound ends the process. The
/// tests differ only in their target, and are programs of their own so that they run side by side.
class corpusreplay : public QObject {
    Q_OBJECT

public:
    /// So many mutations are tried under sanitizers, which takes a minute or two, and otherwise a quarter of them.
    corpusreplay(const char* target, int mutations);

private slots:
    void initTestCase();
    void theCorpusIsWhatTheWriterMakes();
    void eachInputOfTheCorpusIsSurvivedAndLeavesNothingBehind_data();
    void eachInputOfTheCorpusIsSurvivedAndLeavesNothingBehind();
    void mutationsOfTheCorpusAreSurvived();

private:
    QByteArray target;
    int mutations;
    std::unique_ptr<fuzztarget> reader;
    QMap<QString, QByteArray> corpus;
};
