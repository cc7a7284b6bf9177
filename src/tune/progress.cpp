#include "tune/progress.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

#include <unistd.h>

#include "tune/console.hpp"
#include "tune/plot_words.hpp"
#include "tune/row_picture.hpp"
#include "tune/text.hpp"

namespace {

constexpr const char* empty_line = "\r\033[K"; // to its start, and erase what is there

std::string passes_text(const sweep_grid& grid, std::size_t row) {
    const window widest = widest_in(grid, row);
    if (widest.size == 0) {
        return "nothing passes";
    }
    return text_of(grid.columns, widest) + " pass";
}

/** How many points of a row were tried. */
std::size_t tried_in(const sweep_grid& grid, std::size_t row) {
    std::size_t tried = 0;
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        tried += grid.cell(row, i).kind == verdict::untried ? 0U : 1U;
    }
    return tried;
}

/** "1:05", of seconds. */
std::string minutes_text(double seconds) {
    const auto whole = static_cast<unsigned long long>(seconds);
    char text[32];
    std::snprintf(text, sizeof text, "%llu:%02llu", whole / 60, whole % 60);
    return text;
}

/** A row as it is now, in one line. */
std::string row_line(const sweep_grid& grid, std::size_t row, const std::string& behind,
                     const canvas& c) {
    std::string name = short_name(grid);
    if (grid.rows) {
        name = grid.rows->text(row);
    }
    constexpr std::size_t least_room = 8;       // for the picture: without it the text is cut
    const std::size_t around = name.size() + 3; // with two blanks and the cursor
    const std::string text = behind.substr(0, c.width - std::min(around + least_room, c.width));
    const std::size_t room =
        std::max(c.width - std::min(around + text.size(), c.width), least_room);
    const std::size_t stride = stride_for(grid.columns.size(), room);
    return name + " " + row_picture(grid, row, stride, c) + " " + text;
}

} // namespace

progress::progress() : m_redraws(can_redraw(STDERR_FILENO)), m_canvas(canvas_of(STDERR_FILENO)) {}

void progress::point_done(const sweep_grid& grid, std::size_t row) {
    ++m_done;
    if (!m_redraws) {
        return;
    }
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_begin;
    const auto untried = static_cast<double>(
        std::count_if(grid.cells.begin(), grid.cells.end(),
                      [](const point_result& cell) { return cell.kind == verdict::untried; }));
    const double left = gone.count() / static_cast<double>(m_done) * untried;
    const std::string known = std::to_string(m_done) + " done, " + passes_text(grid, row) + ", " +
                              minutes_text(gone.count()) + ", up to " + minutes_text(left) +
                              " left";
    std::fprintf(stderr, "%s%s", empty_line, row_line(grid, row, known, m_canvas).c_str());
}

void progress::row_done(const sweep_grid& grid, std::size_t row) const {
    const std::string known =
        passes_text(grid, row) + ", " + counted(tried_in(grid, row), "point") + " tried";
    if (m_redraws) {
        std::fprintf(stderr, "%s%s\n", empty_line, row_line(grid, row, known, m_canvas).c_str());
    } else {
        say(grid.row_name(row) + ": " + known);
    }
}
