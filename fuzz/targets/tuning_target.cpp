#include "platform/catalogue.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "property/property_set.hpp"
#include "targets/targets.hpp"
#include "tune/knobs.hpp"
#include "tune/mistake.hpp"
#include "tune/tuning.hpp"
#include "tune/value_text.hpp"

namespace {

/** Fields of every kind and a set as properties, for as long as it lives. */
class registered_fields {
public:
    registered_fields() {
        property_group* const group = property_group::register_property_group("fields");
        for (const auto& list : {orlin_ddr_registers, ehci_registers, pcie_registers}) {
            for (reg_info* reg : list) {
                property_register::register_as_property(group, reg);
            }
        }
        const std::string lane = "orlin-ddra-read2::dq";
        property::register_property(
            group, new property_set(lane, {lane + "0", lane + "1", lane + "2", lane + "3",
                                           lane + "4", lane + "5", lane + "6", lane + "7"}));
    }
    ~registered_fields() {
        property_group::free_all();
        property::free_all();
    }
    registered_fields(const registered_fields&) = delete;
    registered_fields& operator=(const registered_fields&) = delete;
};

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
