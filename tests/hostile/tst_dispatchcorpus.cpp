#include "corpusreplay.h"

#include <QTest>

class tst_dispatchcorpus : public corpusreplay {
    Q_OBJECT

public:
    tst_dispatchcorpus()
        : corpusreplay("dispatch", 4000)
    {
    }
};

QTEST_MAIN(tst_dispatchcorpus)
#include "tst_dispatchcorpus.moc"
