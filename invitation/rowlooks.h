#pragma once

#include "invitestate.h"

#include <QIcon>
#include <QString>

#include <array>

/// Icon and tool tip of a row, always shown together.
struct rowlook {
    QIcon icon;
    QString toolTip;
};

/// The looks of all rows of one tree, which owns them. The rows share them, since an icon read for each of some
/// thousand rows would be felt; and nothing is static, since a QIcon must not outlive the library.
class rowlooks {
public:
    rowlooks();

    const rowlook& of(invitestate state, bool channel, bool withPlugin) const;

private:
    std::array<rowlook, 11> looks;
};
