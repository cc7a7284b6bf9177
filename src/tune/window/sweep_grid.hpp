#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tune/knob/knobs.hpp"
#include "tune/window/axis.hpp"
#include "tune/window/sweep_log.hpp"

/**
 * The points of a sweep of one property: a row of them or, with a second axis, a row for each of
 * its values.
 */
struct sweep_grid {
    axis columns;
    std::optional<axis> rows;
    std::vector<point_result> cells; ///< row by row

    std::size_t row_count() const { return rows ? rows->size() : 1; }

    point_result& cell(std::size_t row, std::size_t column) {
        return cells[row * columns.size() + column];
    }
    const point_result& cell(std::size_t row, std::size_t column) const {
        return cells[row * columns.size() + column];
    }

    /** What a row is about: the property and, of two axes, the second one's value. */
    std::string row_name(std::size_t row) const;

    /** The words that a log has for a point. */
    std::vector<std::string> place(std::size_t row, std::size_t column) const;

    /** The cell of such words; nothing for those of another sweep's point. */
    std::optional<std::size_t> find(const std::vector<std::string>& words) const;

    /** What is set at a point: the second axis first. */
    std::vector<setting> settings_at(std::size_t row, std::size_t column) const;
};

/** Points of a row that stand side by side and all passed. */
struct window {
    std::size_t first = 0;
    std::size_t size = 0;

    std::size_t last() const { return first + size - 1; }
};

/** All windows of a row, in its order. */
std::vector<window> windows_in(const sweep_grid& grid, std::size_t row);

/** The widest of them, of equal ones the one that is nearer to the present value; size 0 for none.
 */
window widest_in(const sweep_grid& grid, std::size_t row);

/** The middle of a window; of an even one the point that is nearer to the present value. */
std::size_t middle_of(const sweep_grid& grid, const window& w);

/** "d-5 to d+12", or the only point. */
std::string text_of(const axis& a, const window& w);

/** The name in "NAME" and in "NAME=VALUES". */
std::string name_of_axis(const std::string& text);

/** The properties that axes name, with all their parts. @throw mistake for what is no axis */
std::vector<const knob*> axis_targets(const knobs& all, const std::vector<std::string>& axes);

/**
 * The grids of a sweep: one, or one for each lane of a set that is not moved together.
 * @param axes    one or two, each "NAME" or "NAME=VALUES"
 * @param present what the parts of the axes' properties hold: settings, each part once
 * @throw mistake for axes that cannot be swept
 */
std::vector<sweep_grid> make_grids(const knobs& all, const std::vector<std::string>& axes,
                                   bool together, const std::vector<setting>& present);

/** Takes over what a log says of the points; of those that are in no grid nothing. */
void fill(std::vector<sweep_grid>& grids, const std::vector<tried_point>& points);
