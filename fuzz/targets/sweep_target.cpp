#include <algorithm>

#include "targets/registered_fields.hpp"
#include "targets/targets.hpp"
#include "tune/plot/html_plot.hpp"
#include "tune/plot/text_plot.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/window/sweep_results.hpp"

namespace {

/** Whether one log's points are those that another one begins with. */
bool begins_with(const sweep_log& whole, const sweep_log& part) {
    if (part.points.size() > whole.points.size()) {
        return false;
    }
    for (std::size_t i = 0; i < part.points.size(); ++i) {
        if (part.points[i].place != whole.points[i].place) {
            return false;
        }
    }
    return true;
}

/** What is wrong with the pictures of a log. */
void draw(const std::string& input, findings& found) {
    const registered_fields fields;
    const knobs all;
    const sweep_results results = results_in(all, input, "log");
    const auto is_printable = [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); };
    const std::string text = plot_text(results, {40, false, false});
    const std::string page = plot_html(results);
    if (!std::all_of(text.begin(), text.end(), is_printable) ||
        !std::all_of(page.begin(), page.end(), is_printable)) {
        found.push_back("a picture with what is not printable");
    }
}

} // namespace

findings sweep_log_file(const std::string& input) {
    findings found;
    try {
        const sweep_log log = parse_log(input, "log");
        if (from_shell(to_shell(log.run)) != log.run) {
            found.push_back("words that are not read as they are written: " + to_shell(log.run));
        }
        for (const tried_point& point : log.points) {
            const auto again = to_result(to_word(point.result));
            if (point.result.kind != verdict::hang &&
                (!again || again->kind != point.result.kind)) {
                found.push_back("a verdict that is not read as it is written");
            }
        }
        // Cut off, and gone on with: the points before that are the same.
        std::string cut = input.substr(0, input.size() - 1);
        const sweep_log part = parse_log(cut.append(cut_mark) + "\nsession s, boot b\n", "log");
        if (!begins_with(log, part)) {
            found.push_back("a log that has other points when it is cut");
        }
        draw(input, found);
    } catch (const mistake& problem) {
        if (!std::string(problem.what()).starts_with("log:")) {
            found.push_back(std::string("a mistake without its line: ") + problem.what());
        }
    }
    return found;
}
