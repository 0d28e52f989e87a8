#include "corpusreplay.h"

#include <QTest>

class tst_payloadscorpus : public corpusreplay {
    Q_OBJECT

public:
    tst_payloadscorpus()
        : corpusreplay("payloads", 150000)
    {
    }
};

QTEST_MAIN(tst_payloadscorpus)
#include "tst_payloadscorpus.moc"
