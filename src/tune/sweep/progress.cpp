#include "tune/sweep/progress.hpp"

#include <cstdio>
#include <string>

#include <unistd.h>

#include "tune/plot/canvas.hpp"
#include "tune/plot/plot_words.hpp"
#include "tune/plot/row_picture.hpp"
#include "tune/text/console.hpp"
#include "tune/text/text.hpp"

namespace {

std::string passes_text(const sweep_grid& grid, std::size_t row) {
    const window widest = widest_in(grid, row);
    if (widest.size == 0) {
        return "nothing passes";
    }
    return text_of(grid.columns, widest) + " pass";
}

/** "1:05", of seconds. */
std::string minutes_text(double seconds) {
    const auto whole = static_cast<unsigned long long>(seconds);
    char text[32];
    std::snprintf(text, sizeof text, "%llu:%02llu", whole / 60, whole % 60);
    return text;
}

/**
 * A row as it is now and words behind it, in one line: without the picture, where both have no
 * room.
 */
std::string row_line(const sweep_grid& grid, std::size_t row, const std::string& words) {
    constexpr std::size_t least_room = 8; // for the picture
    const canvas c = canvas_of(STDERR_FILENO);
    std::string line = short_name(grid) + " ";
    if (grid.rows) {
        line = grid.rows->text(row) + " ";
    }
    const std::size_t taken = line.size() + words.size() + 2; // with a blank and the cursor
    if (c.width >= taken + least_room) {
        const std::size_t stride = stride_for(grid.columns.size(), c.width - taken);
        line += row_picture(grid, row, stride, c) + " ";
    }
    return line + words;
}

} // namespace

progress::progress() : m_redraws(can_redraw(STDERR_FILENO)) {}

void progress::point_begins(const sweep_grid& grid, std::size_t row, std::size_t column) const {
    if (!m_redraws) {
        return;
    }
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_begin;
    std::string words = grid.columns.text(column) + ", " + std::to_string(m_done) + " done, " +
                        passes_text(grid, row) + ", " + minutes_text(gone.count());
    if (m_done != 0) {
        const double each = gone.count() / static_cast<double>(m_done);
        words += ", up to " + minutes_text(each * static_cast<double>(m_left)) + " left";
    }
    say_in_place(row_line(grid, row, words));
}

void progress::point_done() {
    ++m_done;
    --m_left;
}

void progress::row_done(const sweep_grid& grid, std::size_t row) {
    std::size_t tried = 0;
    for (std::size_t column = 0; column < grid.columns.size(); ++column) {
        const verdict kind = grid.cell(row, column).kind;
        tried += kind == verdict::untried ? 0U : 1U;
        m_left -= is_settled(kind) ? 0U : 1U;
    }
    const std::string words = passes_text(grid, row) + ", " + counted(tried, "point") + " tried";
    if (m_redraws) {
        say_in_place_at_last(row_line(grid, row, words));
    } else {
        say(grid.row_name(row) + ": " + words);
    }
}
