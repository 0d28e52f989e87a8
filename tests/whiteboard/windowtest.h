#pragma once

#include "sessionfixture.h"
#include "tests/support/temporarydirectory.h"
#include "windowparts.h"

#include <QtTest>

/// A test whose windows must not make the toolkit complain.
class quietwindowtest : public QObject {
protected:
    void begin()
    {
        warnings.reset(new warningcounter);
        fixture.reset(new sessionfixture);
    }
    void end()
    {
        fixture.reset();
        QCOMPARE(warnings->count(), 0);
        warnings.reset();
    }

    QScopedPointer<sessionfixture> fixture;

private:
    QScopedPointer<warningcounter> warnings;
};

/// A test whose windows write to the temporary directory, and give back what the client lent them.
class filewindowtest : public QObject {
protected:
    void begin()
    {
        fixture.reset(new sessionfixture);
        QVERIFY(temporary.enter());
    }
    void end()
    {
        QCOMPARE(fixture->host.outstanding, 0);
        fixture.reset();
        temporary.leave();
    }

    temporarydirectory temporary;
    QScopedPointer<sessionfixture> fixture;
};
