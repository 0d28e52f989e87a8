#pragma once

#include "fuzztarget.h"
#include "memorydir.h"

#include <QTemporaryDir>

/// Picture files, as they come out of a channel's file store: the input is the content of one. It is read alone, and as
/// the picture and the background of a session.
class picturetarget : public fuzztarget {
public:
    void run(const QByteArray& input) override;
    QMap<QByteArray, int> reached() const override { return {{"read", read}, {"refused", refused}}; }

private:
    QTemporaryDir directory{memoryDirForm()};
    int read = 0;
    int refused = 0;
};
