#pragma once

/// The tools of the canvas and the operations that travel in paint messages. The values are part of the wire format:
/// a message carries the tool as the one character with this code. 0 is not used.
enum class kelvortool : char {
    notool = 1, ///< no tool: the mouse does nothing; never sent
    pencil = 2, ///< freehand line
    text = 3, ///< text box; sent once the text is finished
    rect = 4, ///< outline of a rectangle or a square
    ellipse = 5, ///< outline of an ellipse or a circle
    clear = 6, ///< the whole canvas was cleared; never a current tool
    line = 7, ///< straight line
    eraser = 8, ///< freehand eraser
    airbrush = 9, ///< chain of dithered discs; no button chooses it
    fill = 10, ///< flood fill
    select = 11, ///< selection; only a completed move is sent
    clearselection = 12, ///< the selected rectangle was cleared; like all that follow never a current tool
    fliphorizontally = 13, ///< effect on the canvas or the selection
    flipvertically = 14, ///< effect
    swap = 15, ///< effect
    invert = 16, ///< effect
    grayscale = 17 ///< effect
};
