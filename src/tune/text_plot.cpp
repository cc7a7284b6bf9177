#include "tune/text_plot.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include "tune/plot_words.hpp"
#include "tune/row_picture.hpp"
#include "tune/signs.hpp"
#include "tune/text.hpp"

namespace {

/** A mark below a row or beside it. */
struct mark {
    const char* ascii;
    const char* utf8;
    const char* word;
};

constexpr mark present_mark{"|", "│", "present"};
constexpr mark best_mark{"^", "▲", "best"};
constexpr mark both_mark{"@", "◆", "present and best"};

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
    return text.size() <= width ? text : text.substr(0, width - 3) + "...";
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
    frame(std::size_t points, std::size_t indent, const canvas& c, std::size_t right)
        : left(indent), stride(stride_for(points, c.width - std::min(left + right, c.width - 1))),
          size(stride_for(points, stride)) {}

    std::size_t left;
    std::size_t stride; ///< how many points a sign stands for
    std::size_t size;   ///< in signs
};

/** Labels of an axis: at the first sign, and at all that have room behind the label before. */
std::string scale(const axis& a, const frame& f) {
    std::size_t widest = 0;
    for (std::size_t i = 0; i < f.size; ++i) {
        widest = std::max(widest, a.text(i * f.stride).size());
    }
    std::string line(f.left, ' ');
    for (std::size_t i = 0; i < f.size; i += widest + 3) {
        line = padded(line, f.left + i) + "|" + a.text(i * f.stride);
    }
    return line;
}

/** The marks of points below a row. */
std::string marks_below(const axis& a, const std::optional<best_point>& best, const frame& f,
                        const canvas& c) {
    const std::optional<std::size_t> present = present_in(a);
    std::string line(f.left, ' ');
    for (std::size_t i = 0; i < f.size; ++i) {
        line +=
            mark_for(present && *present / f.stride == i, best && best->column / f.stride == i, c);
    }
    return as_line(line);
}

/** What a sign stands for, unless it is one point. */
std::string note_of(const frame& f) {
    if (f.stride == 1) {
        return "";
    }
    return "each sign: the worst of " + std::to_string(f.stride) + " points\n";
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
    const frame f(columns.size(), left, c, beside ? right : 0);
    std::string text;
    const auto add = [&](std::string line, const std::string& its_facts, const std::string& marks) {
        if (beside) {
            line = padded(line, left + f.size) + "  " + its_facts;
        }
        text += as_line(line) + marks;
        if (!beside) {
            text += as_line("  " + its_facts);
        }
    };
    add(scale(columns, f), facts[0], "");
    for (std::size_t i = 0; i < grids.size(); ++i) {
        const std::string name = padded(short_name(grids[i]), left);
        add(name + row_picture(grids[i], 0, f.stride, c), facts[i + 1],
            marks_below(grids[i].columns, bests[i], f, c));
    }
    return text + note_of(f);
}

/** A row for each value of the second axis, the last one on top. */
std::string shmoo_text(const sweep_grid& grid, const canvas& c) {
    const axis& rows = *grid.rows;
    const std::optional<best_point> best = best_in(grid);
    const std::optional<std::size_t> present = present_in(rows);
    std::size_t left = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        left = std::max(left, rows.text(row).size() + 1);
    }
    const frame f(grid.columns.size(), left, c, 2); // a blank and a mark
    std::string text = rows.target().name() + "\n";
    for (std::size_t row = rows.size(); row-- > 0;) {
        text += as_line(padded(rows.text(row), left) + row_picture(grid, row, f.stride, c) + " " +
                        mark_for(present && *present == row, best && best->row == row, c));
    }
    text += marks_below(grid.columns, best, f, c) + as_line(scale(grid.columns, f));
    text += std::string(left, ' ') + grid.columns.target().name() + "\n";
    return text + note_of(f) + joined(in_lines(words_for(grid, best), c.width), "\n") + "\n";
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
    return wrapped(pieces, c);
}

} // namespace

std::string plot_text(const sweep_results& results, const canvas& c) {
    std::string text = cut_to(c.width, title_of(results)) + "\n";
    for (const std::string& origin : origins_of(results)) {
        text += cut_to(c.width, origin) + "\n";
    }
    text += "\n";
    if (results.grids.front().rows) {
        for (const sweep_grid& grid : results.grids) {
            text += shmoo_text(grid, c);
        }
    } else {
        text += lanes_text(results.grids, c);
    }
    return text + "\n" + legend(results, c);
}
