#include "dispatchtarget.h"

#include "canvas/paintscene.h"
#include "must.h"
#include "whiteboard/whiteboard.h"

#include <cstdlib>

namespace {

constexpr QSize boardSize(64, 48);

} // namespace

void dispatchtarget::run(const QByteArray& input)
{
    if (!opened)
        world.open();
    // The airbrush draws from it.
    std::srand(1);
    // Opening the windows takes a hundred times as long as a message, so they stay when only their pictures changed.
    opened = world.play(input);
    if (opened)
        clearPictures();
}

void dispatchtarget::clearPictures()
{
    const QList<whiteboard*> boards = world.player.shown<whiteboard>();
    for (whiteboard* board : boards) {
        auto* canvas = board->findChild<paintscene*>();
        must(canvas->picture().size() == boardSize, "a canvas has changed its size");
        canvas->applyDraw(static_cast<char>(kelvortool::clear), QColor(), 1, {});
    }
}
