// The properties that the catalogue becomes, proof-read against the tables in this folder.

#include <algorithm>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <typeinfo>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/catalogue.hpp"
#include "platform/register_properties.hpp"
#include "property/property.hpp"
#include "property/property_file.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "property/property_regulator_voltage.hpp"
#include "property/property_set.hpp"
#include "protected_members.hpp"
#include "reg/garbages.hpp"
#include "reg/reg_info.hpp"
#include "reg/reg_subval.hpp"
#include "support/fake_memory.hpp"
#include "table.hpp"

namespace registration_test {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/** Registers everything for the length of the program, as its main does. */
class registration : public testing::Environment {
public:
    void SetUp() override { platform_register_properties(); }
    void TearDown() override {
        property_group::free_all();
        property::free_all();
    }
};
[[maybe_unused]] const auto* const registered =
    testing::AddGlobalTestEnvironment(std::make_unique<registration>().release());

/** The kind's name in the tables; the exact kind, so that no subclass passes for its base. */
std::string kind_of(const property& p) {
    const std::type_info& kind = typeid(p);
    return kind == typeid(property_register)            ? "register"
           : kind == typeid(property_set)               ? "set"
           : kind == typeid(property_regulator_voltage) ? "regulator"
           : kind == typeid(property_file<int>)         ? "file"
                                                        : kind.name();
}

std::string members_of(const property& p) {
    std::string text;
    if (const auto* set = dynamic_cast<const property_set*>(&p)) {
        for (const std::string& member : set->m_members) {
            text += (text.empty() ? "" : ",") + member;
        }
    }
    return text.empty() ? "-" : text;
}

/** What is registered, in the order of the listing and in the form of properties.tsv. */
std::vector<std::string> registered_lines() {
    std::vector<std::string> lines;
    for (const auto& [group_name, group] : property_group::get_groups()) {
        for (const auto& [name, p] : group->m_properties) {
            std::string help;
            p->get_help(help);
            lines.push_back(group_name + '\t' + name + '\t' + kind_of(*p) + '\t' + help + '\t' +
                            members_of(*p));
        }
    }
    return lines;
}

std::vector<std::string> expected_lines() {
    std::vector<std::string> lines;
    for (const table_row& row : read_table("properties.tsv")) {
        lines.push_back(row.line());
    }
    return lines;
}

/** The lines of the one that the other lacks. */
std::vector<std::string> difference(std::vector<std::string> of, std::vector<std::string> to) {
    std::ranges::sort(of);
    std::ranges::sort(to);
    std::vector<std::string> lines;
    std::ranges::set_difference(of, to, std::back_inserter(lines));
    return lines;
}

TEST(Registration, EveryGroupHasItsNumberOfProperties) {
    std::map<std::string, std::size_t> sizes;
    for (const auto& [name, group] : property_group::get_groups()) {
        sizes[name] = group->m_properties.size();
    }
    EXPECT_THAT(sizes, ElementsAre(Pair("ebus", 4), Pair("ehci", 20), Pair("i2c", 32),
                                   Pair("mac", 2), Pair("mmc", 1), Pair("orlin-ddr", 248),
                                   Pair("pcie", 2), Pair("pelune-ddr", 84), Pair("regulator", 4)));
    EXPECT_EQ(property::properties.size(), 397);
}

TEST(Registration, PropertiesAreThoseOfTheTableAndNoOthers) {
    const std::vector<std::string> actual = registered_lines();
    const std::vector<std::string> expected = expected_lines();
    EXPECT_THAT(difference(expected, actual), IsEmpty()) << "in the table, but not registered";
    EXPECT_THAT(difference(actual, expected), IsEmpty()) << "registered, but not in the table";
    EXPECT_TRUE(actual == expected) << "the order of the listing is not that of the table";
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
    std::size_t fields = 0;
    for (reg_info* reg : info_garbages.m_list) {
        for (const auto& [name, field] : reg->m_subvals) {
            const std::string full_name = reg->m_name + "::" + name;
            const auto* p = dynamic_cast<property_register*>(property::get_property(full_name));
            ASSERT_NE(p, nullptr) << full_name;
            EXPECT_EQ(p->m_reg, reg) << full_name;
            EXPECT_EQ(p->m_subval, field) << full_name;
            ++fields;
        }
    }
    EXPECT_EQ(fields, 360);
}

TEST(Registration, MembersOfEverySetAreAllLanesOfItsOwnRegister) {
    std::size_t sets = 0;
    for (const auto& [name, p] : property::properties) {
        const auto* set = dynamic_cast<property_set*>(p);
        if (set == nullptr) {
            continue;
        }
        ++sets;
        std::set<const reg_info*> registers;
        for (const std::string& member : set->m_members) {
            const auto* lane = dynamic_cast<property_register*>(property::get_property(member));
            ASSERT_NE(lane, nullptr) << member;
            registers.insert(lane->m_reg);
        }
        ASSERT_EQ(registers.size(), 1) << name;
        const reg_info& reg = **registers.begin();
        EXPECT_EQ(name, reg.m_name + "::dq");
        std::vector<std::string> lanes;
        for (const auto& [lane, field] : reg.m_subvals) {
            lanes.push_back(reg.m_name + "::" + lane);
        }
        EXPECT_EQ(set->m_members, lanes);
    }
    EXPECT_EQ(sets, 32);
}

TEST(Registration, RegulatorsAndFilesAreThoseOfTheirTable) {
    std::vector<property*> listed(regulator_properties);
    listed.insert(listed.end(), mmc_properties.begin(), mmc_properties.end());
    const std::vector<table_row> rows = read_table("elsewhere.tsv");
    ASSERT_EQ(listed.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const table_row& row = rows[i];
        SCOPED_TRACE(row.line());
        EXPECT_EQ(listed[i]->name, row["name"]);
        EXPECT_EQ(listed[i], property::get_property(row["name"]));
        ASSERT_EQ(kind_of(*listed[i]), row["kind"]);
        if (const auto* regulator = dynamic_cast<property_regulator_voltage*>(listed[i])) {
            EXPECT_EQ(regulator_members::path(*regulator), row["path"]);
            EXPECT_EQ(regulator_members::min_percent(*regulator), row.number("minimum"));
            EXPECT_EQ(regulator_members::max_percent(*regulator), row.number("maximum"));
        } else {
            const auto& file = dynamic_cast<property_file<int>&>(*listed[i]);
            EXPECT_EQ(file_members::path(file), row["path"]);
            EXPECT_EQ(file_members::min(file), static_cast<int>(row.number("minimum")));
            EXPECT_EQ(file_members::max(file), static_cast<int>(row.number("maximum")));
        }
    }
}

TEST(Registration, BuildingAndRegisteringTouchesNoHardware) {
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

} // namespace registration_test
