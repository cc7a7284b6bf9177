#include "tune/plot/text_plot.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include "tune/plot/plot_words.hpp"
#include "tune/plot/row_picture.hpp"
#include "tune/plot/signs.hpp"
#include "tune/text/text.hpp"

namespace {

/** A mark below a row or beside it. */
struct mark {
    const char* ascii;
    const char* utf8;
    const char* word;
};

constexpr mark present_mark{"|", "│", "present"};
constexpr mark best_mark{"^", "▲", "best"};
constexpr mark both_mark{"@", "◆", "both"};

std::string on(const canvas& where, const mark& m) {
    return where.utf8 ? m.utf8 : m.ascii;
}

/** The mark of a place; a blank for neither. */
std::string mark_for(bool is_present, bool is_best, const canvas& c) {
    if (is_present && is_best) {
        return on(c, both_mark);
    }
    if (is_present) {
        return on(c, present_mark);
    }
    if (is_best) {
        return on(c, best_mark);
    }
    return " ";
}

/** How many characters a text has. */
std::size_t width_of(std::string_view text) {
    constexpr auto begins_character = [](char c) { return (c & 0xc0) != 0x80; }; // of UTF-8
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), begins_character));
}

std::string padded(std::string text, std::size_t width) {
    text.append(width - std::min(width, width_of(text)), ' ');
    return text;
}

/** A line without the blanks at its end. */
std::string as_line(std::string text) {
    text.erase(text.find_last_not_of(' ') + 1);
    return text + "\n";
}

/** No more of a text than there is room for. */
std::string cut_to(std::size_t width, const std::string& text) {
    if (text.size() <= width) {
        return text;
    }
    return text.substr(0, width - 3) + "...";
}

/** Pieces in lines, with two blanks between each two. */
std::string wrapped(const std::vector<std::string>& pieces, const canvas& c) {
    std::string text;
    std::string line;
    for (const std::string& piece : pieces) {
        if (!line.empty() && width_of(line) + width_of(piece) > c.width) {
            text += as_line(line);
            line.clear();
        }
        line.append(piece).append("  ");
    }
    return text + as_line(line);
}

/** Where the signs of rows are. */
struct frame {
    /** @param right how many characters are needed behind the rows */
    frame(const axis& a, std::size_t indent, const canvas& c, std::size_t right) : left(indent) {
        const std::size_t room = c.width - std::min(left + right, c.width - 1);
        stride = stride_for(a.size(), room);
        count = stride_for(a.size(), stride);
        // Few points, such as those of a mapped field, have a label each.
        const std::size_t pitch_of_labels = a.longest_text() + 2;
        if (count <= 8 && count * pitch_of_labels <= room) {
            pitch = pitch_of_labels;
        }
    }

    /** How many characters the rows have. */
    std::size_t width() const { return (count - 1) * pitch + 1; }

    std::size_t left;
    std::size_t stride;    ///< how many points a sign stands for
    std::size_t count;     ///< of signs
    std::size_t pitch = 1; ///< from a sign to the next one
};

/** Labels of an axis: at the first sign, and at each that has room behind the label before. */
std::string scale(const axis& a, const frame& f) {
    const std::size_t step = f.pitch == 1 ? a.longest_text() + 3 : 1;
    std::string line(f.left, ' ');
    for (std::size_t i = 0; i < f.count; i += step) {
        const std::string label = std::string("|").append(a.text(i * f.stride));
        const bool fits = i * f.pitch + label.size() <= f.width() || f.pitch != 1;
        if (i == 0 || fits) {
            line = padded(line, f.left + i * f.pitch) + label;
        }
    }
    return line;
}

/** The marks of points below a row. */
std::string marks_below(const axis& a, const std::optional<best_point>& best, const frame& f,
                        const canvas& c) {
    const std::optional<std::size_t> present = present_in(a);
    std::string line(f.left, ' ');
    for (std::size_t i = 0; i < f.count; ++i) {
        line +=
            mark_for(present && *present / f.stride == i, best && best->column / f.stride == i, c) +
            std::string(f.pitch - 1, ' ');
    }
    return as_line(line);
}

/** What a sign stands for, unless it is one point. */
std::string note_of(const frame& f, const canvas& c) {
    if (f.stride == 1) {
        return "";
    }
    const std::string note = "each sign: the worst of " + std::to_string(f.stride) + " points";
    return joined(in_lines(note, c.width), "\n") + "\n";
}

/** A row for each property, with its window, middle and margins beside it or below. */
std::string lanes_text(const std::vector<sweep_grid>& grids, const canvas& c) {
    constexpr std::size_t enough = 32; // signs: with fewer of them, the facts stand below
    const auto bests = bests_in(grids);
    const std::vector<std::string> facts = fact_lines(grids, bests);
    std::size_t left = 0;
    for (const sweep_grid& grid : grids) {
        left = std::max(left, short_name(grid).size() + 1);
    }
    std::size_t right = 0;
    for (const std::string& line : facts) {
        right = std::max(right, line.size() + 2);
    }
    const axis& columns = grids.front().columns;
    const bool beside = c.width >= left + std::min(columns.size(), enough) + right;
    const frame f(columns, left, c, beside ? right : 0);
    std::string text;
    const std::string labels = scale(columns, f);
    const std::size_t width = std::max(f.width(), labels.size() - left);
    const auto add = [&](std::string line, const std::string& its_facts, const std::string& marks) {
        if (beside) {
            line = padded(line, left + width) + "  " + its_facts;
        }
        text += as_line(line) + marks;
        if (beside) {
            return;
        }
        for (const std::string& part : in_lines(its_facts, c.width - 2)) {
            text += as_line("  " + part);
        }
    };
    add(labels, facts[0], "");
    for (std::size_t i = 0; i < grids.size(); ++i) {
        const std::string name = padded(short_name(grids[i]), left);
        add(name + row_picture(grids[i], 0, f.stride, c, f.pitch), facts[i + 1],
            marks_below(grids[i].columns, bests[i], f, c));
    }
    return text + note_of(f, c);
}

/** A row for each value of the second axis, the last one on top. */
std::string shmoo_text(const sweep_grid& grid, const canvas& c) {
    const axis& rows = *grid.rows;
    const std::optional<best_point> best = best_in(grid);
    const std::optional<std::size_t> present = present_in(rows);
    const std::size_t left = rows.longest_text() + 1;
    const frame f(grid.columns, left, c, 2); // a blank and a mark
    std::string text = cut_to(c.width, rows.target().name()) + "\n";
    for (std::size_t row = rows.size(); row-- > 0;) {
        text +=
            as_line(padded(rows.text(row), left) + row_picture(grid, row, f.stride, c, f.pitch) +
                    " " + mark_for(present && *present == row, best && best->row == row, c));
    }
    text += marks_below(grid.columns, best, f, c) + as_line(scale(grid.columns, f));
    const std::size_t behind = c.width - left; // at least 9: no text of a value is longer than 10
    text += std::string(left, ' ') + cut_to(behind, grid.columns.target().name()) + "\n";
    return text + note_of(f, c) + joined(in_lines(words_for(grid, best), c.width), "\n") + "\n";
}

std::string legend(const sweep_results& results, const canvas& c) {
    std::vector<std::string> pieces;
    for (const sign* each : signs_in(results.grids)) {
        if (each->ascii.empty()) {
            const auto [digits, words] = digits_in(results);
            pieces.push_back(digits + " " + words);
        } else {
            pieces.emplace_back(c.utf8 ? each->utf8 : each->ascii).append(" ").append(each->word);
        }
    }
    for (const mark& each : {present_mark, best_mark, both_mark}) {
        pieces.push_back(on(c, each) + " " + each.word);
    }
    if (results.logs.size() > 1) {
        pieces.emplace_back("(present in the first log)");
    }
    return wrapped(pieces, c);
}

} // namespace

std::string plot_text(const sweep_results& results, const canvas& c) {
    std::string text = cut_to(c.width, title_of(results)) + "\n";
    for (const std::string& origin : origins_of(results)) {
        text += cut_to(c.width, origin) + "\n";
    }
    text += "\n";
    if (results.grids.front().rows) { // a set has no rows: this is all
        text += shmoo_text(results.grids.front(), c);
    } else {
        text += lanes_text(results.grids, c);
    }
    return text + "\n" + legend(results, c);
}
