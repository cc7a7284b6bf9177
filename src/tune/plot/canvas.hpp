#pragma once

#include <cstddef>

/** What may be drawn on a stream. */
struct canvas {
    std::size_t width = 80; ///< in characters
    bool utf8 = false;
    bool color = false;
};

/**
 * The width of a stream is COLUMNS, or else its terminal's, or else 80. Its characters are those
 * that LC_ALL, LC_CTYPE or LANG names. It has colors if `can_redraw` says so and NO_COLOR
 * is not set.
 */
canvas canvas_of(int fd);

/** Whether a stream is a terminal on which a line can be written over: TERM names a kind, but not
 * "dumb". */
bool can_redraw(int fd);
