#include "tune/window/sweep_grid.hpp"

#include <algorithm>

#include "tune/knob/tuning.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/text.hpp"

namespace {

/** The values of "NAME=VALUES"; empty for "NAME". */
std::string value_in(const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string::npos) {
        return "";
    }
    return text.substr(equals + 1);
}

/** What the parts of a knob hold, of all that is known. */
std::vector<std::uint32_t> codes_of(const knob& k, const std::vector<setting>& present) {
    std::vector<std::uint32_t> codes;
    for (const knob* part : k.parts()) {
        const auto found = std::find_if(present.begin(), present.end(),
                                        [part](const setting& s) { return s.target == part; });
        if (found == present.end()) {
            throw mistake("it is not known what " + part->name() + " held before");
        }
        codes.push_back(found->code);
    }
    return codes;
}

void check_apart(const knob& a, const knob& b) {
    for (const knob* one : a.parts()) {
        for (const knob* other : b.parts()) {
            if (share_bits(*one, *other)) {
                throw mistake("the axes " + a.name() + " and " + b.name() + " share bits");
            }
        }
    }
}

} // namespace

std::string name_of_axis(const std::string& text) {
    return text.substr(0, text.find('='));
}

std::string sweep_grid::row_name(std::size_t row) const {
    std::string name = columns.target().name();
    if (rows) {
        name += " with " + rows->target().name() + "=" + rows->text(row);
    }
    return name;
}

std::vector<std::string> sweep_grid::place(std::size_t row, std::size_t column) const {
    std::vector<std::string> words;
    words.push_back(columns.target().name() + "=" + columns.text(column));
    if (rows) {
        words.push_back(rows->target().name() + "=" + rows->text(row));
    }
    return words;
}

std::vector<setting> sweep_grid::settings_at(std::size_t row, std::size_t column) const {
    std::vector<setting> settings;
    if (rows) {
        settings = rows->settings_at(row);
    }
    const std::vector<setting> first = columns.settings_at(column);
    settings.insert(settings.end(), first.begin(), first.end());
    return settings;
}

std::optional<std::size_t> sweep_grid::find(const std::vector<std::string>& words) const {
    const std::size_t axes = rows ? 2 : 1;
    if (words.size() != axes) {
        return std::nullopt;
    }
    if (name_of_axis(words.front()) != columns.target().name()) {
        return std::nullopt;
    }
    std::size_t row = 0;
    if (rows) {
        if (name_of_axis(words.back()) != rows->target().name()) {
            return std::nullopt;
        }
        row = rows->find(value_in(words.back()));
    }
    const std::size_t column = columns.find(value_in(words.front()));
    if (column == columns.size() || row == row_count()) {
        return std::nullopt;
    }
    return row * columns.size() + column;
}

std::vector<const knob*> axis_targets(const knobs& all, const std::vector<std::string>& axes) {
    if (axes.empty() || axes.size() > 2) {
        throw mistake("a sweep has one axis or two");
    }
    std::vector<const knob*> targets;
    for (const std::string& text : axes) {
        targets.push_back(&all.named(name_of_axis(text)));
        if (targets.back()->kind == knob_kind::read_only) {
            throw mistake(name_of_axis(text) + " is read-only");
        }
    }
    return targets;
}

std::vector<sweep_grid> make_grids(const knobs& all, const std::vector<std::string>& axes,
                                   bool together, const std::vector<setting>& present) {
    const std::vector<const knob*> targets = axis_targets(all, axes);
    const auto make_axis = [&](const knob& k, const std::string& text) {
        if (text.ends_with('=')) {
            throw mistake(in_quotes(text) + " has no values");
        }
        return axis(k, value_in(text), codes_of(k, present));
    };
    const auto is_set = [](const knob* k) { return k->kind == knob_kind::set; };
    if (together && std::none_of(targets.begin(), targets.end(), is_set)) {
        throw mistake("--together is for a set of lanes: " + targets[0]->name() + " is none");
    }
    std::optional<axis> rows;
    if (axes.size() == 2) {
        check_apart(*targets[0], *targets[1]);
        for (const knob* target : targets) {
            if (is_set(target) && !together) {
                throw mistake("of two axes, " + target->name() +
                              " can be one with --together, or one of its lanes");
            }
        }
        rows = make_axis(*targets[1], axes[1]);
    }
    std::vector<const knob*> swept(1, targets[0]);
    if (is_set(targets[0]) && !together) {
        swept = targets[0]->lanes;
    }
    std::vector<sweep_grid> grids;
    for (const knob* k : swept) {
        sweep_grid& grid = grids.emplace_back(sweep_grid{make_axis(*k, axes[0]), rows, {}});
        if (grid.row_count() > most_points / grid.columns.size()) {
            throw mistake("the two axes have more than " + std::to_string(most_points) +
                          " points: they need FROM..TO/STEP");
        }
        grid.cells.resize(grid.row_count() * grid.columns.size());
    }
    return grids;
}

void fill(std::vector<sweep_grid>& grids, const std::vector<tried_point>& points) {
    for (const tried_point& point : points) {
        for (sweep_grid& grid : grids) {
            const std::optional<std::size_t> cell = grid.find(from_shell(point.place));
            if (cell) {
                grid.cells[*cell] = point.result;
            }
        }
    }
}

std::vector<window> windows_in(const sweep_grid& grid, std::size_t row) {
    std::vector<window> found;
    bool inside = false;
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        const bool passed = grid.cell(row, i).kind == verdict::pass;
        if (passed && !inside) {
            found.push_back({i, 0});
        }
        inside = passed;
        if (inside) {
            ++found.back().size;
        }
    }
    return found;
}

window widest_in(const sweep_grid& grid, std::size_t row) {
    window widest;
    for (const window& w : windows_in(grid, row)) {
        const bool nearer = grid.columns.steps_away(middle_of(grid, w)) <
                            grid.columns.steps_away(middle_of(grid, widest));
        if (w.size > widest.size || (w.size == widest.size && nearer)) {
            widest = w;
        }
    }
    return widest;
}

std::size_t middle_of(const sweep_grid& grid, const window& w) {
    const std::size_t upper = w.first + w.size / 2;
    if (w.size == 0 || w.size % 2 == 1) {
        return upper;
    }
    return grid.columns.steps_away(upper - 1) < grid.columns.steps_away(upper) ? upper - 1 : upper;
}

std::string text_of(const axis& a, const window& w) {
    std::string text = a.text(w.first);
    if (w.size > 1) {
        text += " to " + a.text(w.last());
    }
    return text;
}
