#include "checker/known_properties.hpp"

#include <sstream>

#include "catalogue/table.hpp"

namespace fuzz {
namespace {

const std::map<std::string, field_place::kind> field_kinds = {
    {"reg_bitmask", field_place::kind::plain},
    {"reg_bitmask_map", field_place::kind::mapped},
    {"reg_bitmask_ro", field_place::kind::read_only},
    {"orlin::reg_bitmask_dq", field_place::kind::dq},
};

std::map<std::string, property_target> register_fields() {
    std::map<std::string, std::map<std::uint32_t, std::uint32_t>> maps;
    for (const table_row& row : read_table("maps.tsv")) {
        maps[row["map"]][row.number("user-value")] = row.number("raw-value");
    }
    std::map<std::string, property_target> found;
    for (const register_field& each : every_register_field()) {
        const auto& [reg, field] = each;
        const field_place place{field_kinds.at(field["kind"]),
                                {reg.number("address"), each.selector()},
                                field.number("high"),
                                field.number("low"),
                                maps[field["map"]]};
        found[reg["name"] + "::" + field["name"]] = {property_target::kind::field, {place}, ""};
    }
    return found;
}

void add_sets(std::map<std::string, property_target>& properties) {
    for (const table_row& row : read_table("properties.tsv")) {
        if (row["kind"] != "set") {
            continue;
        }
        property_target set{property_target::kind::set, {}, ""};
        std::istringstream members(row["members"]);
        for (std::string member; std::getline(members, member, ',');) {
            set.fields.push_back(properties.at(member).fields.front());
        }
        properties[row["name"]] = set;
    }
}

void add_files(std::map<std::string, property_target>& properties) {
    for (const table_row& row : read_table("elsewhere.tsv")) {
        const bool file = row["kind"] == "file";
        properties[row["name"]] = {file ? property_target::kind::file
                                        : property_target::kind::regulator,
                                   {},
                                   row["path"],
                                   static_cast<int>(row.number("minimum")),
                                   static_cast<int>(row.number("maximum"))};
    }
}

} // namespace

const std::map<std::string, property_target>& known_properties() {
    static const std::map<std::string, property_target> properties = [] {
        std::map<std::string, property_target> found = register_fields();
        add_sets(found);
        add_files(found);
        return found;
    }();
    return properties;
}

} // namespace fuzz
