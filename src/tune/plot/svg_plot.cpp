#include "tune/plot/svg_plot.hpp"

#include <algorithm>
#include <string>
#include <tuple>

#include "tune/plot/drawing.hpp"
#include "tune/plot/plot_words.hpp"
#include "tune/plot/signs.hpp"
#include "tune/text/text.hpp"

namespace {

// Passes are blue and the others are not red or green: these hold up for the color-blind.
constexpr std::string_view picture_style = R"(
text { font: 13px monospace; fill: #1a1a1a; white-space: pre }
.head { font-weight: bold }
.sign { pointer-events: none; font-size: 11px }
.paper { fill: #fff }
rect { stroke: #fff; stroke-width: 1 }
.passed { fill: #17609f }
.untried { fill: #f2f2f2 }
.part { fill: #9ec6e6 }
.no-stick { fill: #dcdcdc }
.failed { fill: #fbd0a6 }
.timed-out { fill: #fde9c9 }
.unsound { fill: #f4a9a0 }
.hung { fill: #e8837a }
.best, .present, .tick { fill: none; stroke: #1a1a1a; stroke-width: 1.5 }
.best { fill: #1a1a1a }
.frame { fill: none; stroke: #1a1a1a; stroke-width: 2 }
@media screen and (prefers-color-scheme: dark) {
text { fill: #e8e8e8 }
.paper { fill: #16191d }
rect { stroke: #16191d }
.passed { fill: #7fc1ff }
.untried { fill: #22272d }
.part { fill: #3d6c96 }
.no-stick { fill: #474c52 }
.failed { fill: #6b3f14 }
.timed-out { fill: #54400f }
.unsound { fill: #7a2b25 }
.hung { fill: #94352d }
.best, .present, .tick, .frame { stroke: #e8e8e8 }
.best { fill: #e8e8e8 }
}
)";

constexpr int widest_row = 1080; // unless so many cells of the least width need more
constexpr int least_cell = 8;
constexpr int most_cell = 18;
constexpr int row_height = 18;
constexpr int left_margin = 16;
constexpr int mark_height = 9;

/** Where the points of a grid are. */
struct raster {
    int left;
    int top;
    int cell; ///< the width of one
    int step; ///< from a row to the next one

    int x(std::size_t column) const { return left + static_cast<int>(column) * cell; }
    int middle(std::size_t column) const { return x(column) + cell / 2; }
    int y(std::size_t row) const { return top + static_cast<int>(row) * step; }
};

int width_of(std::size_t characters) {
    return static_cast<int>(characters) * drawing::character;
}

/** The width of a point's cell; of few points wide enough for their labels. */
int cell_width(const axis& a) {
    const int points = static_cast<int>(a.size());
    const int label = width_of(a.longest_text() + 1);
    return std::clamp(widest_row / points, least_cell,
                      points <= 16 ? std::max(label, most_cell) : most_cell);
}

std::string point(int x, int y) {
    return std::string("M").append(std::to_string(x)).append(" ").append(std::to_string(y));
}

/** A triangle: that of a best point from below, that of a present one from above. */
void draw_mark(drawing& d, std::string_view style, int x, int y) {
    d.path(style, point(x, y) + (style == "best" ? "l-4 7h8z" : "l-4 -7h8z"));
}

/** The points of a row. @param place the row's on the raster */
void draw_row(drawing& d, const sweep_grid& grid, std::size_t row, const raster& r,
              std::size_t place) {
    std::string behind;
    if (grid.rows) {
        behind = " with " + grid.rows->text(row);
    }
    const std::string name = short_name(grid) + " ";
    const int y = r.y(place);
    for (std::size_t column = 0; column < grid.columns.size(); ++column) {
        const point_result& result = grid.cell(row, column);
        const sign& its = sign_of(result);
        d.cell(r.x(column), y, r.cell, row_height, its.style,
               name + grid.columns.text(column) + behind + ": " + words_for(result));
        if (result.kind != verdict::pass) {
            std::string text(its.ascii);
            if (text.empty()) {
                text += digit_of(result);
            }
            d.text_around(r.middle(column), y + drawing::base, text, "sign");
        }
    }
}

/** Labels below the last row, as many as have room. */
void draw_scale(drawing& d, const axis& a, const raster& r, int y) {
    const int room = width_of(a.longest_text() + 1);
    const auto step = static_cast<std::size_t>((room + r.cell - 1) / r.cell);
    for (std::size_t i = 0; i < a.size(); i += step) {
        d.path("tick", point(r.middle(i), y) + "v5");
        d.text_around(r.middle(i), y + drawing::line, a.text(i));
    }
    d.reach(0, y + drawing::line);
}

/** A row for each property, with its window, middle and margins. @return where it ends */
int draw_lanes(drawing& d, const std::vector<sweep_grid>& grids, int top) {
    const auto bests = bests_in(grids);
    const std::vector<std::string> facts = fact_lines(grids, bests);
    const axis& columns = grids.front().columns;
    std::size_t widest = 0;
    for (const sweep_grid& grid : grids) {
        widest = std::max(widest, short_name(grid).size());
    }
    const int left = left_margin + width_of(widest + 1);
    const raster r{left, top + drawing::line + mark_height, cell_width(columns),
                   row_height + 2 * mark_height + 6};
    const int right = r.x(columns.size()) + 2 * drawing::character;
    d.text(right, top + drawing::base, facts[0]);
    for (std::size_t i = 0; i < grids.size(); ++i) {
        const int y = r.y(i);
        d.text(left_margin, y + drawing::base, short_name(grids[i]));
        draw_row(d, grids[i], 0, r, i);
        d.text(right, y + drawing::base, facts[i + 1]);
        if (const auto present = present_in(grids[i].columns)) {
            draw_mark(d, "present", r.middle(*present), y - 1);
        }
        if (bests[i]) {
            draw_mark(d, "best", r.middle(bests[i]->column), y + row_height + 1);
        }
    }
    const int bottom = r.y(grids.size());
    draw_scale(d, columns, r, bottom);
    return bottom + 2 * drawing::line;
}

/** A row for each value of the second axis, the last one on top. @return where it ends */
int draw_shmoo(drawing& d, const sweep_grid& grid, int top) {
    const axis& rows = *grid.rows;
    const auto best = best_in(grid);
    const auto present_row = present_in(rows);
    const int left = left_margin + width_of(rows.longest_text() + 1);
    const raster r{left, top + mark_height, cell_width(grid.columns), row_height};
    const int right = r.x(grid.columns.size()) + drawing::character;
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const std::size_t row = rows.size() - 1 - place;
        d.text(left_margin, r.y(place) + drawing::base, rows.text(row));
        draw_row(d, grid, row, r, place);
        std::string marks;
        if (present_row && *present_row == row) {
            marks += "< present ";
        }
        if (best && best->row == row) {
            marks += "< best";
        }
        if (!marks.empty()) {
            d.text(right, r.y(place) + drawing::base, marks);
        }
    }
    const int bottom = r.y(rows.size());
    if (const auto present = present_in(grid.columns)) {
        draw_mark(d, "present", r.middle(*present), top + mark_height - 1);
    }
    if (best) {
        draw_mark(d, "best", r.middle(best->column), bottom + 1);
        d.path("frame", point(r.x(best->column), r.y(rows.size() - 1 - best->row)) + "h" +
                            std::to_string(r.cell) + "v" + std::to_string(row_height) + "h-" +
                            std::to_string(r.cell) + "z");
    }
    draw_scale(d, grid.columns, r, bottom + mark_height);
    d.text(left, bottom + mark_height + 2 * drawing::line, grid.columns.target().name());
    return bottom + mark_height + 3 * drawing::line;
}

/** What the signs and marks stand for. @return where it ends */
int draw_legend(drawing& d, const sweep_results& results, int top) {
    int x = left_margin;
    const auto place = [&](std::size_t characters) {
        const int here = x;
        x += width_of(characters + 3) + most_cell;
        return here;
    };
    for (const sign* each : signs_in(results.grids)) {
        std::string word(each->word);
        std::string text(each->ascii);
        if (text.empty()) {
            std::tie(text, word) = digits_in(results);
        }
        const int width = std::max<int>(most_cell, static_cast<int>(text.size()) * 10);
        const int here = place(word.size() + text.size() - 1);
        d.cell(here, top, width, row_height, each->style, word);
        if (each->style != "passed") {
            d.text_around(here + width / 2, top + drawing::base, text, "sign");
        }
        d.text(here + width + 6, top + drawing::base, word);
    }
    for (const std::string_view word : {"present", "best"}) {
        const int here = place(word.size());
        draw_mark(d, word, here + most_cell / 2, word == "best" ? top + 5 : top + 12);
        d.text(here + most_cell + 2, top + drawing::base, word);
    }
    return top + 2 * drawing::line;
}

} // namespace

std::string plot_svg(const sweep_results& results) {
    drawing d;
    int y = 2 * drawing::line;
    const auto write = [&](const std::string& text, std::string_view style = "") {
        d.text(left_margin, y, text, style);
        y += drawing::line;
    };
    constexpr std::size_t most_characters = 130;
    const std::string title = title_of(results);
    for (const std::string& line : in_lines(title, most_characters)) {
        write(line, "head");
    }
    for (const std::string& origin : origins_of(results)) {
        write(origin);
    }
    const sweep_grid& first = results.grids.front();
    for (const std::string& line : words_for_axes(results)) {
        write(line);
    }
    if (first.rows) {
        y = draw_shmoo(d, first, y);
    } else {
        y = draw_lanes(d, results.grids, y);
    }
    y = draw_legend(d, results, y + drawing::line) + drawing::line;
    for (const sweep_grid& grid : results.grids) {
        for (const std::string& line : in_lines(words_for(grid, best_in(grid)), most_characters)) {
            write(line);
        }
    }
    return d.svg(title, picture_style);
}
