#include "corpusreplay.h"

#include <QTest>

class tst_settingscorpus : public corpusreplay {
    Q_OBJECT

public:
    tst_settingscorpus()
        : corpusreplay("settings", 20000)
    {
    }
};

QTEST_MAIN(tst_settingscorpus)
#include "tst_settingscorpus.moc"
