#include "paintscenetools.h"

#include "brushes/airbrushbrush.h"
#include "brushes/ellipsebrush.h"
#include "brushes/eraserbrush.h"
#include "brushes/linebrush.h"
#include "brushes/pencilbrush.h"
#include "brushes/rectbrush.h"
#include "brushes/selectionbrush.h"
#include "brushes/textbrush.h"
#include "toolcursors.h"

/// The calls into the tool objects, by the arguments that they take.
struct paintscene::toolcalls {
    template <auto object> static bool pressBrush(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mousePress(event.painter, event.button, event.pos, scene.color, scene.thickness, &event.recordPoint);
    }
    template <auto object> static bool move(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mouseMove(event.painter, event.buttons, event.pos, scene.color, scene.thickness, &event.recordPoint);
    }
    template <auto object> static bool release(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mouseRelease(event.painter, event.button, event.pos, scene.color, scene.thickness, &event.recordPoint);
    }
    template <auto object> static void overlay(paintscene& scene, QPainter* painter)
    {
        (scene.*object)->drawPreview(painter, scene.color, scene.thickness);
    }
    template <auto object>
    static void replay(paintscene& scene, QPainter* painter, const QColor& color, qreal thick,
                       const QList<QPoint>& points)
    {
        (scene.*object)->replay(painter, color, thick, points);
    }

    template <auto object> static bool pressShape(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mousePress(event.painter, event.button, event.modifiers, event.pos, scene.color, scene.thickness,
                         &event.recordPoint);
    }
    template <auto object> static bool moveShape(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mouseMove(event.painter, event.buttons, event.modifiers, event.pos, scene.color, scene.thickness,
                        &event.recordPoint);
    }
    template <auto object> static bool releaseShape(paintscene& scene, toolevent& event)
    {
        return (scene.*object)
            ->mouseRelease(event.painter, event.button, event.modifiers, event.pos, scene.color, scene.thickness,
                           &event.recordPoint);
    }

    static bool pressEraser(paintscene& scene, toolevent& event)
    {
        return scene.eraser->mousePress(event.painter, event.button, event.pos, scene.color, scene.thickness,
                                        !scene.hasBackground, &event.recordPoint);
    }
    static bool moveEraser(paintscene& scene, toolevent& event)
    {
        return scene.eraser->mouseMove(event.painter, event.buttons, event.pos, scene.color, scene.thickness,
                                       !scene.hasBackground, &event.recordPoint);
    }
    static bool releaseEraser(paintscene& scene, toolevent& event)
    {
        return scene.eraser->mouseRelease(event.painter, event.button, event.pos, scene.color, scene.thickness,
                                          !scene.hasBackground, &event.recordPoint);
    }
    static void replayEraser(paintscene& scene, QPainter* painter, const QColor& color, qreal thick,
                             const QList<QPoint>& points)
    {
        scene.eraser->replay(painter, color, thick, points, !scene.hasBackground);
    }

    static bool pressText(paintscene& scene, toolevent& event)
    {
        return scene.text->mousePress(event.painter, event.button, event.pos, scene.color, scene.thickness,
                                      &event.recordPoint, &event.finished);
    }

    static bool pressSelection(paintscene& scene, toolevent& event)
    {
        return scene.selection->mousePress(scene.canvas, event.painter, event.button, event.pos, scene.color,
                                           scene.thickness, &event.recordPoint, &event.clearPoints);
    }
    static bool releaseSelection(paintscene& scene, toolevent& event)
    {
        return scene.selection->mouseRelease(event.painter, event.button, event.pos, scene.color, scene.thickness,
                                             !scene.hasBackground, &event.recordPoint, &event.flushPoints,
                                             &scene.points);
    }
    static void overlaySelection(paintscene& scene, QPainter* painter)
    {
        scene.selection->drawPreview(painter, scene.color, scene.thickness, !scene.hasBackground);
    }
    static void replaySelection(paintscene& scene, QPainter* painter, const QColor&, qreal, const QList<QPoint>& points)
    {
        scene.selection->replay(scene.canvas, painter, points, !scene.hasBackground);
    }
};

const paintscene::toolrow* paintscene::rowOf(kelvortool tool)
{
    using calls = toolcalls;
    using self = paintscene;
    // clang-format off
    static constexpr toolrow rows[] = {
        {kelvortool::notool, toolcursors::arrow, nullptr, nullptr, nullptr, nullptr, nullptr},
        {kelvortool::pencil, toolcursors::pencil,
         calls::pressBrush<&self::pencil>, calls::move<&self::pencil>, calls::release<&self::pencil>,
         nullptr, calls::replay<&self::pencil>},
        {kelvortool::line, toolcursors::arrow,
         calls::pressBrush<&self::line>, calls::move<&self::line>, calls::release<&self::line>,
         calls::overlay<&self::line>, calls::replay<&self::line>},
        {kelvortool::rect, toolcursors::cross,
         calls::pressShape<&self::rect>, calls::moveShape<&self::rect>, calls::releaseShape<&self::rect>,
         calls::overlay<&self::rect>, calls::replay<&self::rect>},
        {kelvortool::ellipse, toolcursors::cross,
         calls::pressShape<&self::ellipse>, calls::moveShape<&self::ellipse>, calls::releaseShape<&self::ellipse>,
         calls::overlay<&self::ellipse>, calls::replay<&self::ellipse>},
        {kelvortool::eraser, toolcursors::eraser,
         calls::pressEraser, calls::moveEraser, calls::releaseEraser, nullptr, calls::replayEraser},
        {kelvortool::airbrush, nullptr,
         calls::pressBrush<&self::airbrush>, calls::move<&self::airbrush>, calls::release<&self::airbrush>,
         nullptr, calls::replay<&self::airbrush>},
        {kelvortool::text, toolcursors::cross,
         calls::pressText, calls::move<&self::text>, calls::release<&self::text>, calls::overlay<&self::text>, nullptr},
        {kelvortool::select, toolcursors::arrow,
         calls::pressSelection, calls::move<&self::selection>, calls::releaseSelection,
         calls::overlaySelection, calls::replaySelection},
        {kelvortool::fill, toolcursors::fill, nullptr, nullptr, nullptr, nullptr, nullptr},
    };
    // clang-format on
    for (const toolrow& row : rows) {
        if (row.tool == tool) {
            return &row;
        }
    }
    return nullptr;
}
