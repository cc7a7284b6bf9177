// Registering the whole catalogue, above all when something of it is registered already.

#include "platform/register_properties.hpp"

#include <cstddef>
#include <map>
#include <new>
#include <string>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/catalogue.hpp"
#include "property/property_set.hpp"
#include "reg/reg_info.hpp"
#include "support/fake_property.hpp"
#include "support/hardware_test.hpp"
#include "support/heap.hpp"

namespace register_properties_test {

using testing::IsEmpty;

class RegisterProperties : public hardware_test {
protected:
    RegisterProperties() {
        // The catalogue holds these for the whole program, and every test registers them.
        for (const auto& list : {regulator_properties, mmc_properties}) {
            for (property* p : list) {
                p->m_auto_delete = false;
            }
        }
        fake_property::log.clear();
    }

    /** The members of every group. */
    static std::map<std::string, std::map<std::string, property*>> members() {
        std::map<std::string, std::map<std::string, property*>> all;
        for (const auto& [name, group] : property_group::get_groups()) {
            all[name] = group->m_properties;
        }
        return all;
    }
};

/** An entry with null is one that no memory was left for. */
bool in_no_group(const std::pair<const std::string, property*>& entry) {
    if (entry.second == nullptr) {
        return false;
    }
    for (const auto& [name, group] : property_group::property_groups) {
        if (group != nullptr && group->m_properties.contains(entry.first)) {
            return false;
        }
    }
    return true;
}

/** The reports of a second registration, in the order of the lists and of the field names. */
std::string every_field_is_taken() {
    std::string lines;
    for (const auto& registers : {orlin_ddr_registers, pelune_ddr_registers, ehci_registers,
                                  i2c_registers, mac_registers, ebus_registers, pcie_registers}) {
        for (const reg_info* reg : registers) {
            for (const auto& [field, _] : reg->m_subvals) {
                lines += "property " + reg->m_name + "::" + field + " is already registered.\n";
            }
        }
    }
    return lines;
}

TEST_F(RegisterProperties, PrintsNothingAndTouchesNoHardware) {
    platform_register_properties();
    EXPECT_EQ(members().size(), 9U);
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegisterProperties, CalledAgainReportsEveryFieldAndLeavesTheRegistriesAsTheyAre) {
    platform_register_properties();
    const auto properties = property::properties;
    const auto groups = property_group::get_groups();
    const auto in_groups = members();
    platform_register_properties();
    EXPECT_EQ(property::properties, properties);
    EXPECT_EQ(property_group::get_groups(), groups);
    EXPECT_EQ(members(), in_groups);
    EXPECT_EQ(messages(), every_field_is_taken());
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegisterProperties, CalledAgainLosesNoMemory) {
    platform_register_properties();
    platform_register_properties(); // the messages take memory, too
    fake_streams::reset();
    const std::size_t before = heap::live();
    platform_register_properties();
    fake_streams::reset();
    EXPECT_EQ(heap::live(), before);
}

TEST_F(RegisterProperties, AfterFreeingEverythingRegistersItAnew) {
    platform_register_properties();
    const std::size_t all = property::properties.size();
    property_group::free_all();
    property::free_all();
    platform_register_properties();
    EXPECT_EQ(property::properties.size(), all);
}

TEST_F(RegisterProperties, TakenNameOfAFieldIsReportedAndTheFirstStays) {
    auto* first = new fake_property("mac-rx::delay");
    property::register_property("elsewhere", first);
    platform_register_properties();
    EXPECT_EQ(messages(), "property mac-rx::delay is already registered.\n");
    EXPECT_EQ(property::get_property("mac-rx::delay"), first);
    EXPECT_FALSE(members().at("mac").contains("mac-rx::delay"));
    EXPECT_TRUE(members().at("mac").contains("mac-tx::delay"));
}

TEST_F(RegisterProperties, TakenNameOfASetARegulatorOrAFileIsDroppedSilently) {
    const char* const names[] = {"orlin-ddrb-write7::dq", "pelune-ddr-read0::dq",
                                 "core_regulator::microvolts", "mmc::rdqs"};
    for (const char* name : names) {
        property::register_property("elsewhere", new fake_property(name));
    }
    platform_register_properties();
    for (const char* name : names) {
        EXPECT_NE(dynamic_cast<fake_property*>(property::get_property(name)), nullptr) << name;
    }
    for (const auto& [group, in_group] : members()) {
        for (const char* name : names) {
            EXPECT_EQ(in_group.contains(name), group == "elsewhere") << group << " " << name;
        }
    }
    EXPECT_THAT(members().at("mmc"), IsEmpty()); // created all the same
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(RegisterProperties, FreeingThePropertiesLosesNoMemory) {
    const std::size_t before = heap::live();
    platform_register_properties();
    property_group::free_all();
    property::free_all();
    EXPECT_EQ(heap::live(), before);
}

// Every seventh allocation fails in turn, which comes to every place where one is made. What
// was in the making is its maker's to delete, so it must not be found in the registry as well.
TEST_F(RegisterProperties, AllocationFailureIsRaisedAndLeavesEveryPropertyOneOwner) {
    const std::size_t before = heap::live();
    bool done = false;
    for (std::size_t allocation = 1; !done; allocation += 7) {
        try {
            const heap::failure failure(allocation);
            platform_register_properties();
            done = true;
        } catch (const std::bad_alloc&) {
        }
        const std::size_t strays = std::erase_if(property::properties, in_no_group);
        ASSERT_EQ(strays, 0U) << "after failure of allocation " << allocation;
        property_group::free_all();
        property::free_all();
        ASSERT_EQ(heap::live(), before) << "after failure of allocation " << allocation;
    }
}

} // namespace register_properties_test
