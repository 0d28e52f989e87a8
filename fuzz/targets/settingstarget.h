#pragma once

#include "fuzztarget.h"
#include "tests/support/fakehost.h"

#include <QTemporaryDir>

/// The settings file: the input is its content. What was read is written and read again.
class settingstarget : public fuzztarget {
public:
    settingstarget();
    void run(const QByteArray& input) override;

private:
    fakehost host;
    QTemporaryDir directory;
    int files = 0;
};
