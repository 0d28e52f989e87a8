#pragma once

#include "clientworld.h"
#include "fuzztarget.h"

/// Messages of peers, as the voice client hands them to the plugin, amid a whole world: whiteboards and lobbies are
/// open, questions are asked and answered, the client reports events and its functions fail. The input is a script of a
/// world, which begins as it was opened.
class dispatchtarget : public fuzztarget {
public:
    void run(const QByteArray& input) override;
    QMap<QByteArray, int> reached() const override { return world.reached(); }

private:
    void clearPictures();

    clientworld world;
};
