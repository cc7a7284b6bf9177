// The fields and registers of the catalogue, proof-read against the table of hardware.

#include "platform/catalogue.hpp"

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

#include "catalogue/table.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "reg/reg_info.hpp"

namespace catalogue_test {

using value_map = reg_bitmask_map::value_map;

template <class T>
std::type_index exact_kind(const T& object) {
    return typeid(object);
}

/** The kinds of a register and of its fields, by the register kind's name in the table. */
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

/** A row of the table and the object that the program built in that place. */
template <class T>
struct entry {
    table_row row;
    T* object;
};

std::string name_of(reg_subval& field) {
    return field.get_name();
}

std::string name_of(const reg_info& reg) {
    return reg.m_name;
}

/** Pairs the rows of a kind with the objects of an ownership list, both in building order. */
template <class T>
std::vector<entry<T>> pair_up(const std::string& kind, const std::list<T*>& built) {
    std::vector<entry<T>> entries;
    auto object = built.begin();
    for (const table_row& row : hardware_rows(kind)) {
        if (object == built.end() || name_of(**object) != row["name"]) {
            throw std::runtime_error("not there in src/platform/catalogue.cpp, or not in " +
                                     hardware_table + " what is: " + row.line());
        }
        entries.push_back({row, *object++});
    }
    if (object != built.end()) {
        throw std::runtime_error("not in " + hardware_table + ": " + kind + " " +
                                 name_of(**object));
    }
    return entries;
}

std::vector<entry<reg_subval>> fields() {
    return pair_up("field", subval_garbages.m_list);
}

std::vector<entry<reg_info>> registers() {
    return pair_up("register", info_garbages.m_list);
}

unsigned int mask_of(unsigned int high, unsigned int low) {
    unsigned int mask = 0;
    for (unsigned int bit = low; bit <= high; ++bit) {
        mask |= 1U << (bit - low);
    }
    return mask;
}

// A row that is forgotten in the table and in the program is missed here alone.
TEST(Catalogue, TotalOfTheTableIsTheNumberOfItsProperties) {
    EXPECT_EQ(every_property().size(), hardware_rows("total").front().number("properties"))
        << "the total in " << hardware_table;
}

TEST(Catalogue, FieldsAreThoseOfTheTable) {
    for (const auto& [row, field] : fields()) {
        SCOPED_TRACE(row.line());
        EXPECT_EQ(exact_kind(*field), field_kinds.at(row["kind"]));
        EXPECT_EQ(field->get_name(), row["name"]);
        EXPECT_EQ(field->get_desc(), row["description"]);
        const auto& range = dynamic_cast<const reg_bitmask&>(*field);
        EXPECT_EQ(range.mask(), mask_of(row.number("high"), row.number("low")));
        EXPECT_EQ(range.shift(), static_cast<int>(row.number("low")));
        const auto* lane = dynamic_cast<const orlin::reg_bitmask_dq*>(field);
        EXPECT_EQ(row["selector-part"] == "-", lane == nullptr);
        if (lane != nullptr) {
            EXPECT_EQ(lane->m_sel, row.number("selector-part"));
        }
    }
}

TEST(Catalogue, MappedFieldsShareOneMapPerNameAndItHoldsThePairsOfTheTable) {
    std::map<std::string, value_map> expected;
    for (const table_row& row : hardware_rows("map")) {
        expected[row["name"]][row.number("user-value")] = row.number("raw-value");
    }
    std::map<std::string, std::set<const value_map*>> used;
    for (const auto& [row, field] : fields()) {
        SCOPED_TRACE(row.line());
        const auto* mapped = dynamic_cast<const reg_bitmask_map*>(field);
        EXPECT_EQ(row["map"] == "-", mapped == nullptr);
        if (mapped != nullptr) {
            const value_map* map = &mapped->map();
            EXPECT_EQ(*map, expected.at(row["map"]));
            used[row["map"]].insert(map);
        }
    }
    EXPECT_EQ(used.size(), expected.size());
    for (const auto& [name, maps] : used) {
        EXPECT_EQ(maps.size(), 1) << name;
    }
}

TEST(Catalogue, RegistersAreThoseOfTheTable) {
    for (const auto& [row, reg] : registers()) {
        SCOPED_TRACE(row.line());
        const kinds& expected = register_kinds.at(row["kind"]);
        EXPECT_EQ(reg->m_name, row["name"]);
        EXPECT_EQ(reg->m_addr, row.number("address"));
        EXPECT_EQ(exact_kind(*reg), expected.reg);
        for (const auto& [name, field] : reg->m_subvals) {
            EXPECT_EQ(exact_kind(*field), expected.field) << name;
        }
        const auto* indirect = dynamic_cast<const orlin::reg_info_orlin_ddr*>(reg);
        EXPECT_EQ(row["selector"] == "-", indirect == nullptr);
        if (indirect != nullptr) {
            EXPECT_EQ(indirect->m_sel_value, row.number("selector"));
            EXPECT_EQ(indirect->m_sel_addr, row.number("select-address"));
        }
    }
}

// The lists of the table name the objects that were built, so this also sees to it that registers
// share the fields of one list and that read and write lanes of the same name stay apart.
TEST(Catalogue, RegistersHoldTheVeryFieldObjectsOfTheirList) {
    std::map<std::string, std::map<std::string, reg_subval*>> lists;
    for (const auto& [row, field] : fields()) {
        EXPECT_TRUE(lists[row["list"]].emplace(row["name"], field).second) << row.line();
    }
    for (const auto& [row, reg] : registers()) {
        EXPECT_EQ(reg->m_subvals, lists.at(row["fields"])) << row.line();
    }
}

TEST(Catalogue, RegisterListsHoldTheirRegistersInOrder) {
    std::map<std::string, std::vector<reg_info*>> expected;
    for (const auto& [row, reg] : registers()) {
        expected[row["list"]].push_back(reg);
    }
    const std::map<std::string, std::vector<reg_info*>> register_lists = {
        {"orlin_ddr_registers", orlin_ddr_registers},
        {"pelune_ddr_registers", pelune_ddr_registers},
        {"ehci_registers", ehci_registers},
        {"i2c_registers", i2c_registers},
        {"mac_registers", mac_registers},
        {"ebus_registers", ebus_registers},
        {"pcie_registers", pcie_registers},
    };
    EXPECT_EQ(register_lists, expected);
}

} // namespace catalogue_test
