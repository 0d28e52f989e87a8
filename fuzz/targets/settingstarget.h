#pragma once

#include "fuzztarget.h"
#include "memorydir.h"
#include "tests/support/fakehost.h"

#include <QTemporaryDir>

/// The settings file: the input is its content. What was read is written and read again.
class settingstarget : public fuzztarget {
public:
    settingstarget();
    void run(const QByteArray& input) override;
    QMap<QByteArray, int> reached() const override { return {{"other than defaults", changed}}; }

private:
    fakehost host;
    QTemporaryDir directory{memoryDirForm()};
    int files = 0;
    int changed = 0;
};
