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
    world.restore();
    // The airbrush draws from it.
    std::srand(1);
    world.play(input);
    // Opening a window takes a hundred times as long as reading a message, so those that nothing but paint can have
    // changed stay.
    world.restore();
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
