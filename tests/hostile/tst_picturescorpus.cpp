#include "corpusreplay.h"

#include <QTest>

class tst_picturescorpus : public corpusreplay {
    Q_OBJECT

public:
    tst_picturescorpus()
        : corpusreplay("pictures", 26000)
    {
    }
};

QTEST_MAIN(tst_picturescorpus)
#include "tst_picturescorpus.moc"
