#include "targets/registered_fields.hpp"
#include "targets/targets.hpp"
#include "tune/knob/knobs.hpp"
#include "tune/knob/tuning.hpp"
#include "tune/knob/value_text.hpp"
#include "tune/text/mistake.hpp"

namespace {

/** What is wrong with a line: its codes fit, and it is read again as it is shown. */
findings look_at(const knobs& all, const tuning_line& line) {
    findings found;
    const std::vector<const knob*> parts = line.target->parts();
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (line.codes.at(i) > parts[i]->most()) {
            found.push_back(line.where + " has a code beyond " + parts[i]->name());
        }
    }
    const std::string shown = to_line(*line.target, line.codes);
    const std::vector<tuning_line> again = parse_tuning(all, shown, "again");
    if (again.size() != 1 || again.front().codes != line.codes) {
        found.push_back(line.where + " is shown as " + shown);
    }
    return found;
}

} // namespace

findings tuning_file(const std::string& input) {
    const registered_fields fields;
    const knobs all;
    findings found;
    try {
        for (const tuning_line& line : parse_tuning(all, input, "file")) {
            const findings in_line = look_at(all, line);
            found.insert(found.end(), in_line.begin(), in_line.end());
        }
    } catch (const mistake& problem) {
        if (!std::string(problem.what()).starts_with("file:")) {
            found.push_back(std::string("a mistake without its line: ") + problem.what());
        }
    }
    return found;
}
