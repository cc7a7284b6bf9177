#include "tune/progress.hpp"

#include <algorithm>
#include <cstdio>
#include <string>

#include <unistd.h>

#include "tune/console.hpp"
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

} // namespace

progress::progress() : m_has_terminal(isatty(STDERR_FILENO) == 1) {}

void progress::point_done(const sweep_grid& grid, std::size_t row) {
    ++m_done;
    if (!m_has_terminal) {
        return;
    }
    const std::chrono::duration<double> gone = std::chrono::steady_clock::now() - m_begin;
    const auto untried = static_cast<double>(
        std::count_if(grid.cells.begin(), grid.cells.end(),
                      [](const point_result& cell) { return cell.kind == verdict::untried; }));
    std::fprintf(stderr, "%s%s: %s, %s, %.0f s gone, at most %.0f s left", empty_line,
                 grid.row_name(row).c_str(), counted(m_done, "point").c_str(),
                 passes_text(grid, row).c_str(), gone.count(),
                 gone.count() / static_cast<double>(m_done) * untried);
}

void progress::row_done(const sweep_grid& grid, std::size_t row) const {
    if (m_has_terminal) {
        std::fputs(empty_line, stderr);
    }
    say(grid.row_name(row) + ": " + passes_text(grid, row) + ", " +
        counted(tried_in(grid, row), "point") + " tried");
}
