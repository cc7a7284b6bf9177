#include "platform/register_properties.hpp"

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/catalogue.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "property/property_set.hpp"

namespace {

using names = std::span<const std::string_view>;

// Names, without the chip's prefix, of registers whose DQ lanes are also shown as one set.
constexpr std::string_view orlin_ddra_read[] = {"ddra-read0", "ddra-read1", "ddra-read2",
                                                "ddra-read3"};
constexpr std::string_view orlin_ddra_write[] = {"ddra-write0", "ddra-write1", "ddra-write2",
                                                 "ddra-write3"};
constexpr std::string_view orlin_ddrb_read[] = {"ddrb-read0", "ddrb-read1", "ddrb-read2",
                                                "ddrb-read3", "ddrb-read4", "ddrb-read5",
                                                "ddrb-read6", "ddrb-read7"};
constexpr std::string_view orlin_ddrb_write[] = {"ddrb-write0", "ddrb-write1", "ddrb-write2",
                                                 "ddrb-write3", "ddrb-write4", "ddrb-write5",
                                                 "ddrb-write6", "ddrb-write7"};
constexpr std::string_view pelune_ddr_read[] = {"ddr-read0", "ddr-read1", "ddr-read2", "ddr-read3"};
constexpr std::string_view pelune_ddr_write[] = {"ddr-write0", "ddr-write1", "ddr-write2",
                                                 "ddr-write3"};

constexpr std::string_view read_lanes[] = {"dq0", "dq1", "dq2", "dq3", "dq4", "dq5", "dq6", "dq7"};
constexpr std::string_view write_lanes[] = {"dq0", "dq1", "dq2", "dq3", "dq4",
                                            "dq5", "dq6", "dq7", "dq8"};

void register_fields(const char* group_name, std::initializer_list<reg_info*> registers) {
    property_group* group = property_group::register_property_group(group_name);
    for (reg_info* reg : registers) {
        property_register::register_as_property(group, reg);
    }
}

void register_all(const char* group_name, std::initializer_list<property*> properties) {
    for (property* p : properties) {
        property::register_property(group_name, p);
    }
}

/** One set per register: prefix + register + "::" + suffix, over its lanes in their order. */
void register_property_sets(const std::string& group_name, const std::string& prefix,
                            names registers, const std::string& suffix, names lanes) {
    std::string name; // reused for one property after another
    for (const std::string_view reg : registers) {
        const std::size_t stem = name.assign(prefix).append(reg).append("::").size();
        std::vector<std::string> members;
        members.reserve(lanes.size());
        for (const std::string_view lane : lanes) {
            members.push_back(name.replace(stem, std::string::npos, lane));
        }
        name.replace(stem, std::string::npos, suffix);
        auto set = std::make_unique<property_set>(name, std::move(members));
        if (property::register_property(group_name, set.get()) != nullptr) {
            static_cast<void>(set.release()); // the registry owns it now
        }
    }
}

} // namespace

void platform_register_properties() {
    register_fields("orlin-ddr", orlin_ddr_registers);
    register_fields("pelune-ddr", pelune_ddr_registers);
    register_fields("ehci", ehci_registers);
    register_fields("i2c", i2c_registers);
    register_fields("mac", mac_registers);
    register_fields("ebus", ebus_registers);
    register_fields("pcie", pcie_registers);

    register_all("regulator", regulator_properties);
    register_all("mmc", mmc_properties);

    register_property_sets("orlin-ddr", "orlin-", orlin_ddra_read, "dq", read_lanes);
    register_property_sets("orlin-ddr", "orlin-", orlin_ddra_write, "dq", write_lanes);
    register_property_sets("orlin-ddr", "orlin-", orlin_ddrb_read, "dq", read_lanes);
    register_property_sets("orlin-ddr", "orlin-", orlin_ddrb_write, "dq", write_lanes);
    register_property_sets("pelune-ddr", "pelune-", pelune_ddr_read, "dq", read_lanes);
    register_property_sets("pelune-ddr", "pelune-", pelune_ddr_write, "dq", write_lanes);
}
