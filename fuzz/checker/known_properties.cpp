#include "checker/known_properties.hpp"

#include "catalogue/table.hpp"

namespace {

const std::map<std::string, field_place::kind> field_kinds = {
    {"reg_bitmask", field_place::kind::plain},
    {"reg_bitmask_map", field_place::kind::mapped},
    {"reg_bitmask_ro", field_place::kind::read_only},
    {"orlin::reg_bitmask_dq", field_place::kind::dq},
};

std::map<std::string, property_target> register_fields() {
    std::map<std::string, std::map<std::uint32_t, std::uint32_t>> maps;
    for (const table_row& row : hardware_rows("map")) {
        maps[row["name"]][row.number("user-value")] = row.number("raw-value");
    }
    std::map<std::string, property_target> found;
    for (const register_field& each : every_register_field()) {
        const auto& [reg, field] = each;
        const field_place place{field_kinds.at(field["kind"]),
                                {reg.number("address"), each.selector()},
                                field.number("high"),
                                field.number("low"),
                                maps[field["map"]]};
        found[each.name()] = {property_target::kind::field, {place}, ""};
    }
    return found;
}

void add_sets(std::map<std::string, property_target>& properties) {
    for (const hardware_property& p : every_property()) {
        for (const std::string& member : p.members) {
            property_target& set = properties[p.name];
            set.what = property_target::kind::set;
            set.fields.push_back(properties.at(member).fields.front());
        }
    }
}

void add_files(std::map<std::string, property_target>& properties) {
    for (const table_row& row : hardware_rows("regulator")) {
        properties[row["name"]] = {property_target::kind::regulator, {}, row["directory"]};
    }
    for (const table_row& row : hardware_rows("file")) {
        properties[row["name"]] = {property_target::kind::file,
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
