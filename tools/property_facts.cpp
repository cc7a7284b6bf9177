#include "property_facts.hpp"

#include <bit>
#include <cstdio>
#include <sstream>
#include <stdexcept>
#include <typeinfo>

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "property/property_file.hpp"
#include "property/property_register.hpp"
#include "property/property_regulator_voltage.hpp"
#include "property/property_set.hpp"
#include "protected_members.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "reg/reg_info.hpp"

namespace {

std::string hexadecimal(unsigned int number, int digits) {
    char text[11];
    std::snprintf(text, sizeof text, "0x%0*x", digits, number);
    return text;
}

std::string from_to(const std::string& low, const std::string& high) {
    return low + " to " + high;
}

std::string bits(const reg_bitmask& field) {
    const int low = bitmask_members::shift(field);
    const int high = low + std::popcount(bitmask_members::mask(field)) - 1;
    return high == low ? "bit " + std::to_string(low)
                       : "bits " + std::to_string(high) + ".." + std::to_string(low);
}

/** The object as a Kind, or null where it is of another one: no subclass passes for its base. */
template <class Kind, class T>
const Kind* exactly(const T& object) {
    return typeid(object) == typeid(Kind) ? dynamic_cast<const Kind*>(&object) : nullptr;
}

/** The address, and for a register behind a selector that selector and where it is put. */
std::string address(const reg_info& reg, const reg_bitmask& field) {
    std::string data = hexadecimal(reg.m_addr, 8);
    if (exactly<reg_info>(reg) != nullptr) {
        return data;
    }
    const orlin::reg_info_orlin_ddr* selected = exactly<orlin::reg_info_orlin_dq>(reg);
    if (selected == nullptr) {
        selected = exactly<orlin::reg_info_orlin_ddr>(reg);
    }
    if (selected == nullptr) {
        throw std::logic_error("unknown kind of register: " + reg.m_name);
    }
    const auto* lane = dynamic_cast<const orlin::reg_bitmask_dq*>(&field);
    const unsigned int selector = selected->m_sel_value | (lane == nullptr ? 0 : lane->m_sel);
    return data + " with " + hexadecimal(selector, 3) + " in " +
           hexadecimal(selected->m_sel_addr, 8);
}

/** Adds kind, values, and a meaning for fields that the catalogue leaves without one. */
void describe_field(reg_bitmask& field, property_facts& facts) {
    unsigned int min = 0;
    unsigned int max = 0;
    field.get_limits(&min, &max);
    facts.kind = "field";
    facts.legal = from_to(std::to_string(min), std::to_string(max));
    facts.meaning = "word of a DDR byte slice";
    if (const auto* mapped = exactly<reg_bitmask_map>(field)) {
        facts.kind = "mapped field";
        facts.legal.clear();
        for (const auto& [key, code] : *bitmask_map_members::map(*mapped)) {
            facts.keys.push_back(key);
            facts.legal += (facts.legal.empty() ? "" : ", ") + std::to_string(key) + " (" +
                           std::to_string(code) + ")";
        }
    } else if (exactly<reg_bitmask_ro>(field) != nullptr) {
        facts.kind = "read-only field";
    } else if (exactly<orlin::reg_bitmask_dq>(field) != nullptr) {
        facts.kind = "DQ delay";
        facts.meaning = "delay of a DQ lane";
    } else if (exactly<reg_bitmask>(field) == nullptr) {
        throw std::logic_error("unknown kind of field: " + field.get_name());
    }
}

property_facts describe_register(const property_register& p) {
    property_facts facts;
    auto& field = dynamic_cast<reg_bitmask&>(*p.m_subval);
    describe_field(field, facts);
    facts.place = address(*p.m_reg, field) + ", " + bits(field);
    if (field.get_desc() != "no desc") {
        facts.meaning = field.get_desc();
    }
    return facts;
}

property_facts describe_regulator(const property_regulator_voltage& p) {
    std::ostringstream legal;
    legal << "microvolts, or " << regulator_members::min_percent(p) << "% to "
          << regulator_members::max_percent(p) << "%";
    return {"regulator", legal.str(), "output voltage", regulator_members::path(p), {}};
}

property_facts describe_file(const property_file<int>& p) {
    return {"file",
            from_to(std::to_string(file_members::min(p)), std::to_string(file_members::max(p))),
            "setting of the eMMC host",
            file_members::path(p),
            {}};
}

property_facts describe_set(const property_set& p) {
    const auto& members = p.m_members;
    return {"set",
            "{" + std::to_string(members.size()) + " values}, or one for all",
            "the lanes of a byte slice",
            from_to(members.front(), members.back()),
            {}};
}

} // namespace

property_facts describe(property& p) {
    if (const auto* field = exactly<property_register>(p)) {
        return describe_register(*field);
    }
    if (const auto* regulator = exactly<property_regulator_voltage>(p)) {
        return describe_regulator(*regulator);
    }
    if (const auto* file = exactly<property_file<int>>(p)) {
        return describe_file(*file);
    }
    if (const auto* set = exactly<property_set>(p)) {
        return describe_set(*set);
    }
    throw std::logic_error("unknown kind of property: " + p.name);
}
