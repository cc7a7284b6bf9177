// The fields and registers of the catalogue, proof-read against the tables in this folder.

#include <initializer_list>
#include <list>
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <typeindex>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/catalogue.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "protected_members.hpp"
#include "reg/garbages.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "reg/reg_info.hpp"
#include "table.hpp"

namespace catalogue_test {

using value_map = reg_bitmask_map::value_map;

template <class T>
std::type_index exact_kind(const T& object) {
    return typeid(object);
}

/** The kinds of a register and of its fields, by the register kind's name in the tables. */
struct kinds {
    std::type_index reg;
    std::type_index field;
};
const std::map<std::string, kinds> register_kinds = {
    {"dq", {typeid(orlin::reg_info_orlin_dq), typeid(orlin::reg_bitmask_dq)}},
    {"slice", {typeid(orlin::reg_info_orlin_ddr), typeid(reg_bitmask)}},
    {"plain", {typeid(reg_info), typeid(reg_bitmask)}},
    {"mapped", {typeid(reg_info), typeid(reg_bitmask_map)}},
    {"read-only", {typeid(reg_info), typeid(reg_bitmask_ro)}},
};
const std::map<std::string, std::type_index> field_kinds = {
    {"orlin::reg_bitmask_dq", typeid(orlin::reg_bitmask_dq)},
    {"reg_bitmask", typeid(reg_bitmask)},
    {"reg_bitmask_map", typeid(reg_bitmask_map)},
    {"reg_bitmask_ro", typeid(reg_bitmask_ro)},
};

/** A row of a table and the object that the program built in that place. */
template <class T>
struct entry {
    table_row row;
    T* object;
};

/** Pairs the rows of a table with the objects of an ownership list, both in building order. */
template <class T>
std::vector<entry<T>> pair_up(const std::string& file, const std::list<T*>& built) {
    std::vector<entry<T>> entries;
    auto object = built.begin();
    for (const table_row& row : read_table(file)) {
        if (object == built.end()) {
            throw std::runtime_error("not built: " + row.line());
        }
        entries.push_back({row, *object++});
    }
    if (object != built.end()) {
        throw std::runtime_error("more objects were built than there are rows in " + file);
    }
    return entries;
}

std::vector<entry<reg_subval>> fields() {
    return pair_up("fields.tsv", subval_garbages.m_list);
}

std::vector<entry<reg_info>> registers() {
    return pair_up("registers.tsv", info_garbages.m_list);
}

unsigned int mask_of(unsigned int high, unsigned int low) {
    unsigned int mask = 0;
    for (unsigned int bit = low; bit <= high; ++bit) {
        mask |= 1U << (bit - low);
    }
    return mask;
}

TEST(Catalogue, TablesAreComplete) {
    EXPECT_EQ(read_table("registers.tsv").size(), 76);
    EXPECT_EQ(read_table("fields.tsv").size(), 41);
    EXPECT_EQ(read_table("maps.tsv").size(), 8);
    EXPECT_EQ(read_table("properties.tsv").size(), 397);
    EXPECT_EQ(read_table("elsewhere.tsv").size(), 5);
}

TEST(Catalogue, FieldsAreBuiltInTheOrderOfTheirTableAndAreOfTheKindsInIt) {
    std::map<std::string, unsigned int> lengths;
    for (const auto& [row, field] : fields()) {
        SCOPED_TRACE(row.line());
        EXPECT_EQ(row.number("position"), lengths[row["field-list"]]++);
        EXPECT_EQ(exact_kind(*field), field_kinds.at(row["kind"]));
        EXPECT_EQ(field->get_name(), row["name"]);
    }
}

TEST(Catalogue, FieldsHaveTheBitsAndTheDescriptionsOfTheirTable) {
    for (const auto& [row, field] : fields()) {
        SCOPED_TRACE(row.line());
        const auto& range = dynamic_cast<const reg_bitmask&>(*field);
        EXPECT_EQ(bitmask_members::mask(range), mask_of(row.number("high"), row.number("low")));
        EXPECT_EQ(bitmask_members::shift(range), static_cast<int>(row.number("low")));
        EXPECT_EQ(field->get_desc(), row["description"]);
    }
}

TEST(Catalogue, EveryDqLaneHasTheSelectorPartOfItsTable) {
    std::size_t lanes = 0;
    for (const auto& [row, field] : fields()) {
        if (const auto* lane = dynamic_cast<const orlin::reg_bitmask_dq*>(field)) {
            SCOPED_TRACE(row.line());
            EXPECT_EQ(lane->m_sel, row.number("selector-part"));
            ++lanes;
        }
    }
    EXPECT_EQ(lanes, 17);
}

TEST(Catalogue, MappedFieldsShareOneMapPerNameAndItHoldsThePairsOfItsTable) {
    std::map<std::string, value_map> expected;
    for (const table_row& row : read_table("maps.tsv")) {
        expected[row["map"]][row.number("user-value")] = row.number("raw-value");
    }
    std::map<std::string, std::set<const value_map*>> used;
    std::set<const value_map*> all;
    for (const auto& [row, field] : fields()) {
        if (const auto* mapped = dynamic_cast<const reg_bitmask_map*>(field)) {
            SCOPED_TRACE(row.line());
            const value_map* map = bitmask_map_members::map(*mapped);
            EXPECT_EQ(*map, expected.at(row["map"]));
            used[row["map"]].insert(map);
            all.insert(map);
        }
    }
    EXPECT_EQ(used["orlin::_drv_map"].size(), 1);
    EXPECT_EQ(used["orlin::_odt_map"].size(), 1);
    EXPECT_EQ(all.size(), 2);
}

TEST(Catalogue, RegistersAreBuiltInTheOrderOfTheirTableAndAreOfTheKindsInIt) {
    for (const auto& [row, reg] : registers()) {
        SCOPED_TRACE(row.line());
        const kinds& expected = register_kinds.at(row["kind"]);
        EXPECT_EQ(reg->m_name, row["name"]);
        EXPECT_EQ(exact_kind(*reg), expected.reg);
        for (const auto& [name, field] : reg->m_subvals) {
            EXPECT_EQ(exact_kind(*field), expected.field) << name;
        }
    }
}

TEST(Catalogue, RegistersHaveTheAddressesAndSelectorsOfTheirTable) {
    std::size_t selected = 0;
    for (const auto& [row, reg] : registers()) {
        SCOPED_TRACE(row.line());
        EXPECT_EQ(reg->m_addr, row.number("address"));
        if (const auto* indirect = dynamic_cast<const orlin::reg_info_orlin_ddr*>(reg)) {
            EXPECT_EQ(indirect->m_sel_value, row.number("selector"));
            EXPECT_EQ(indirect->m_sel_addr, row.number("select-address"));
            ++selected;
        }
    }
    EXPECT_EQ(selected, 48);
}

// The lists of the table name the objects that were built, so this also sees to it that registers
// share the fields of one list and that read and write lanes of the same name stay apart.
TEST(Catalogue, RegistersHoldTheVeryFieldObjectsOfTheirList) {
    std::map<std::string, std::map<std::string, reg_subval*>> lists;
    std::set<reg_subval*> objects;
    for (const auto& [row, field] : fields()) {
        lists[row["field-list"]][row["name"]] = field;
        objects.insert(field);
    }
    EXPECT_EQ(lists.size(), 12);
    EXPECT_EQ(objects.size(), 41);
    for (const auto& [row, reg] : registers()) {
        SCOPED_TRACE(row.line());
        EXPECT_EQ(reg->m_subvals, lists.at(row["field-list"]));
    }
}

TEST(Catalogue, RegisterListsHoldTheirRegistersInOrder) {
    std::map<std::string, std::vector<reg_info*>> expected;
    for (const auto& [row, reg] : registers()) {
        SCOPED_TRACE(row.line());
        std::vector<reg_info*>& list = expected[row["list"]];
        EXPECT_EQ(row.number("position"), list.size());
        list.push_back(reg);
    }
    const std::map<std::string, std::initializer_list<reg_info*>> register_lists = {
        {"orlin_ddr_registers", orlin_ddr_registers},
        {"pelune_ddr_registers", pelune_ddr_registers},
        {"ehci_registers", ehci_registers},
        {"i2c_registers", i2c_registers},
        {"mac_registers", mac_registers},
        {"ebus_registers", ebus_registers},
        {"pcie_registers", pcie_registers},
    };
    EXPECT_EQ(expected.size(), register_lists.size());
    for (const auto& [name, list] : register_lists) {
        SCOPED_TRACE(name);
        EXPECT_THAT(std::vector<reg_info*>(list), testing::ElementsAreArray(expected[name]));
    }
}

} // namespace catalogue_test
