#include <algorithm>

#include "property/property.hpp"
#include "tune/commands.hpp"
#include "tune/knob/facts.hpp"
#include "tune/text/console.hpp"
#include "tune/text/table.hpp"

namespace {

const std::vector<std::string> headings = {"name",    "kind", "values", "unit",
                                           "address", "bits", "help"};

std::vector<std::string> cells_of(const knob& k) {
    const knob_facts facts = facts_of(k);
    std::vector<std::string> cells;
    for (const std::string* cell : {&k.name(), &facts.kind, &facts.legal, &facts.unit,
                                    &facts.address, &facts.bits, &facts.help}) {
        cells.push_back(*cell);
    }
    return cells;
}

std::string as_json(const std::vector<const knob*>& chosen) {
    std::string text = "[";
    for (const knob* k : chosen) {
        text += text.size() == 1 ? "\n" : ",\n";
        const std::vector<std::string> cells = cells_of(*k);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            text += (i == 0 ? "  {" : ", ") + json_text(headings[i]) + ": " + json_text(cells[i]);
        }
        text += "}";
    }
    return text + "\n]\n";
}

} // namespace

tune_status list_knobs(const knobs& all, const command_line& words) {
    std::vector<const knob*> chosen;
    if (words.operands.empty()) {
        std::transform(all.all().begin(), all.all().end(), std::back_inserter(chosen),
                       [](const knob& k) { return &k; });
    } else {
        chosen = all.chosen(words.operands);
    }
    if (words.json) {
        show(as_json(chosen));
    } else {
        std::vector<std::vector<std::string>> rows;
        rows.push_back(headings);
        std::transform(chosen.begin(), chosen.end(), std::back_inserter(rows),
                       [](const knob* k) { return cells_of(*k); });
        show(as_table(rows));
    }
    return tune_status::done;
}
