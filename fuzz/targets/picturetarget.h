#pragma once

#include "fuzztarget.h"

#include <QTemporaryDir>

/// Picture files, as they come out of a channel's file store: the input is the content of one. It is read alone, and as
/// the picture and the background of a session.
class picturetarget : public fuzztarget {
public:
    void run(const QByteArray& input) override;

private:
    QTemporaryDir directory;
};
