#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/catalogue.hpp"
#include "platform/orlin/dq_lanes.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_names.hpp"
#include "property/property_register.hpp"
#include "property/property_set.hpp"
#include "reg/reg_info.hpp"

/*
 * growth STRIDE COPIES
 *
 * One read among as many properties as wanted. Takes every STRIDE-th register of the catalogue,
 * makes COPIES copies of it under other names, registers their fields and DQ sets, reads one field,
 * and releases everything as the tool does. Prints the number of properties.
 *
 * The catalogue itself is built as well, but never registered: with 0 copies the program does what
 * does not grow, to be subtracted.
 */

namespace {

using orlin::dq_lanes;
using orlin::reg_bitmask_dq;
using orlin::reg_info_orlin_ddr;
using orlin::reg_info_orlin_dq;

const std::initializer_list<reg_subval*> no_fields = {};

/** The lanes of a register of the catalogue: of the first one with as many. */
const dq_lanes& lanes_of(const reg_info_orlin_dq& reg) {
    static std::map<std::size_t, dq_lanes> lanes;
    const auto [entry, is_new] =
        lanes.try_emplace(reg.m_subvals.size(), dq_lanes(std::initializer_list<reg_bitmask_dq*>{}));
    if (is_new) {
        entry->second.by_name = reg.m_subvals;
        for (const auto& [field_name, field] : reg.m_subvals) {
            entry->second.words.emplace(field, 0);
            entry->second.flags.emplace(field, false);
        }
    }
    return entry->second;
}

/** The same register under another name. `info_garbages` owns it. */
reg_info* copy_of(const reg_info* reg, const std::string& name) {
    if (const auto* dq = dynamic_cast<const reg_info_orlin_dq*>(reg)) {
        return new reg_info_orlin_dq(name, dq->m_sel_value, dq->m_sel_addr, dq->m_addr,
                                     lanes_of(*dq));
    }
    reg_info* copy = nullptr;
    if (const auto* ddr = dynamic_cast<const reg_info_orlin_ddr*>(reg)) {
        copy =
            new reg_info_orlin_ddr(name, ddr->m_sel_value, ddr->m_sel_addr, ddr->m_addr, no_fields);
    } else {
        copy = new reg_info(name, reg->m_addr, no_fields, true);
    }
    copy->m_subvals = reg->m_subvals;
    return copy;
}

void register_set(property_group* group, const reg_info* reg) {
    property_names names;
    names.begin(reg->m_name);
    std::vector<std::string> members;
    for (const auto& [field_name, field] : reg->m_subvals) {
        members.push_back(names.of(field_name));
    }
    property::register_property(group, new property_set(names.of("dq"), std::move(members)));
}

/** Registers every STRIDE-th register of a list under its name with `suffix`. */
void register_copies(const char* group_name, std::initializer_list<reg_info*> registers,
                     std::size_t stride, const std::string& suffix) {
    property_group* group = property_group::register_property_group(group_name);
    std::vector<reg_info*> copies;
    for (std::size_t i = 0; i < registers.size(); i += stride) {
        const reg_info* reg = registers.begin()[i];
        copies.push_back(copy_of(reg, reg->m_name + suffix));
    }
    property_register::register_as_property(group, copies);
    for (const reg_info* copy : copies) {
        if (dynamic_cast<const reg_info_orlin_dq*>(copy) != nullptr) {
            register_set(group, copy);
        }
    }
}

void register_everything(std::size_t stride, const std::string& suffix) {
    register_copies("orlin-ddr", orlin_ddr_registers, stride, suffix);
    register_copies("pelune-ddr", pelune_ddr_registers, stride, suffix);
    register_copies("ehci", ehci_registers, stride, suffix);
    register_copies("i2c", i2c_registers, stride, suffix);
    register_copies("mac", mac_registers, stride, suffix);
    register_copies("ebus", ebus_registers, stride, suffix);
    register_copies("pcie", pcie_registers, stride, suffix);
}

bool read_one(const std::string& suffix) {
    property* found = property::get_property("orlin-ddra" + suffix + "::odt");
    std::string value;
    return found != nullptr && found->get(value);
}

std::string suffix_of(unsigned long copy) {
    return std::to_string(copy).insert(0, 1, '~');
}

} // namespace

int main(int argc, char* argv[]) {
    const unsigned long stride = argc == 3 ? std::strtoul(argv[1], nullptr, 10) : 0;
    const unsigned long copies = argc == 3 ? std::strtoul(argv[2], nullptr, 10) : 0;
    if (stride == 0) {
        std::fputs("growth STRIDE COPIES\n", stderr);
        return 2;
    }
    for (unsigned long copy = 0; copy < copies; ++copy) {
        register_everything(stride, suffix_of(copy));
    }
    if (copies != 0 && !read_one(suffix_of(copies / 2))) {
        std::fputs("growth: the field cannot be read\n", stderr);
        return 1;
    }
    std::printf("%zu\n", property::properties.size());
    property_group::free_all();
    property::free_all();
    return 0;
}
