// The properties that the catalogue becomes, proof-read against the table of hardware.

#include <algorithm>
#include <iterator>
#include <map>
#include <string>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "catalogue/table.hpp"
#include "platform/catalogue.hpp"
#include "property/property.hpp"
#include "property/property_file.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "property/property_regulator_voltage.hpp"
#include "property/property_set.hpp"
#include "reg/reg_info.hpp"
#include "reg/reg_subval.hpp"
#include "support/fake_memory.hpp"

namespace registration_test {

using testing::IsEmpty;

/** The kind's name in the tables; the exact kind, so that no subclass passes for its base. */
std::string kind_of(const property& p) {
    const std::type_info& kind = typeid(p);
    return kind == typeid(property_register)            ? "register"
           : kind == typeid(property_set)               ? "set"
           : kind == typeid(property_regulator_voltage) ? "regulator"
           : kind == typeid(property_file<int>)         ? "file"
                                                        : kind.name();
}

/** What is registered, in the order of the listing. */
std::vector<hardware_property> registered_properties() {
    std::vector<hardware_property> all;
    for (const auto& [group_name, group] : property_group::get_groups()) {
        for (const auto& [name, p] : group->m_properties) {
            hardware_property each{group_name, name, kind_of(*p), "", {}};
            p->get_help(each.help);
            if (const auto* set = dynamic_cast<const property_set*>(p)) {
                each.members = set->m_members;
            }
            all.push_back(each);
        }
    }
    return all;
}

/** Those of the one list that the other lacks. */
std::vector<hardware_property> difference(const std::vector<hardware_property>& of,
                                          const std::vector<hardware_property>& to) {
    std::vector<hardware_property> found;
    std::ranges::copy_if(of, std::back_inserter(found), [&](const hardware_property& p) {
        return std::ranges::find(to, p) == to.end();
    });
    return found;
}

TEST(Registration, PropertiesAreThoseOfTheTableAndNoOthers) {
    const std::vector<hardware_property> actual = registered_properties();
    const std::vector<hardware_property> expected = every_property();
    EXPECT_THAT(difference(expected, actual), IsEmpty())
        << "not registered as in " << hardware_table;
    EXPECT_THAT(difference(actual, expected), IsEmpty())
        << "not as registered in " << hardware_table;
    EXPECT_TRUE(actual == expected) << "the order of the listing is not that of the table";
    EXPECT_EQ(property::properties.size(), expected.size());
}

TEST(Registration, EveryPropertyIsInExactlyOneGroupUnderItsOwnName) {
    std::map<std::string, property*> members;
    for (const auto& [group_name, group] : property_group::get_groups()) {
        EXPECT_EQ(group->name, group_name);
        for (const auto& [name, p] : group->m_properties) {
            EXPECT_EQ(p->name, name);
            EXPECT_TRUE(p->m_auto_delete) << name;
            EXPECT_TRUE(members.emplace(name, p).second) << name << " is in two groups";
        }
    }
    EXPECT_EQ(members, property::properties);
}

TEST(Registration, EveryFieldOfEveryRegisterIsReachedThroughItsOwnProperty) {
    for (reg_info* reg : info_garbages.m_list) {
        for (const auto& [name, field] : reg->m_subvals) {
            const std::string full_name = reg->m_name + "::" + name;
            const auto* p = dynamic_cast<property_register*>(property::get_property(full_name));
            ASSERT_NE(p, nullptr) << full_name;
            EXPECT_EQ(p->m_reg, reg) << full_name;
            EXPECT_EQ(p->m_subval, field) << full_name;
        }
    }
}

TEST(Registration, RegulatorsAreThoseOfTheTable) {
    const std::vector<table_row> rows = hardware_rows("regulator");
    ASSERT_EQ(regulator_properties.size(), rows.size()) << hardware_table;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const table_row& row = rows[i];
        SCOPED_TRACE(row.line());
        property* const p = regulator_properties.begin()[i];
        EXPECT_EQ(p, property::get_property(row["name"]));
        const auto& regulator = dynamic_cast<property_regulator_voltage&>(*p);
        EXPECT_EQ(regulator.path(), row["directory"]);
        EXPECT_EQ(regulator.min_percent(), row.number("minimum-percent"));
        EXPECT_EQ(regulator.max_percent(), row.number("maximum-percent"));
    }
}

TEST(Registration, FilesAreThoseOfTheTable) {
    const std::vector<table_row> rows = hardware_rows("file");
    ASSERT_EQ(mmc_properties.size(), rows.size()) << hardware_table;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const table_row& row = rows[i];
        SCOPED_TRACE(row.line());
        property* const p = mmc_properties.begin()[i];
        EXPECT_EQ(p, property::get_property(row["name"]));
        const auto& file = dynamic_cast<property_file<int>&>(*p);
        EXPECT_EQ(file.path(), row["path"]);
        EXPECT_EQ(file.min(), static_cast<int>(row.number("minimum")));
        EXPECT_EQ(file.max(), static_cast<int>(row.number("maximum")));
    }
}

TEST(Registration, BuildingAndRegisteringTouchesNoHardware) {
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

} // namespace registration_test
