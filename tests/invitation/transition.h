#pragma once

/// One row of the tables that tell what a lobby does.
struct transition {
    const char* state; ///< what the row shows before, as lookOf() names it
    const char* event;
    const char* look; ///< of the row afterwards
    const char* lists; ///< afterwards, as lobbyfixture::lists() tells them
    const char* sent; ///< as lobbyfixture::sent() tells it, joined
};
