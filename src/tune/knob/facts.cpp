#include "tune/knob/facts.hpp"

#include <bit>
#include <stdexcept>
#include <typeinfo>

#include "base/hexadecimal.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "property/property.hpp"
#include "tune/knob/value_text.hpp"

namespace {

struct kind_facts {
    const char* name;
    const char* unit;
    const char* help;
};

kind_facts facts_of_kind(knob_kind kind) {
    switch (kind) {
    case knob_kind::mapped:
        return {"mapped field", "ohm", ""};
    case knob_kind::read_only:
        return {"read-only field", "-", ""};
    case knob_kind::lane:
        return {"DQ delay", "-", "delay of a DQ lane"};
    case knob_kind::set:
        return {"set", "-", "the lanes of a byte slice"};
    case knob_kind::file:
        return {"file", "-", "setting of the eMMC host"};
    case knob_kind::regulator:
        return {"regulator", "uV", "output voltage"};
    default:
        return {"field", "-", "word of a DDR byte slice"};
    }
}

/** The address, and for a register behind a selector that selector and where it is put. */
std::string address_of(const knob& k) {
    const reg_info& reg = *k.reg;
    std::string data = hexadecimal(reg.m_addr, 8);
    if (typeid(reg) == typeid(reg_info)) {
        return data;
    }
    const auto* const selected = dynamic_cast<const orlin::reg_info_orlin_ddr*>(&reg);
    if (selected == nullptr) {
        throw std::logic_error("unknown kind of register: " + reg.m_name);
    }
    unsigned int selector = selected->m_sel_value;
    if (k.kind == knob_kind::lane) {
        selector |= dynamic_cast<orlin::reg_bitmask_dq&>(*k.field).m_sel;
    }
    return data + " with " + hexadecimal(selector, 3) + " in " +
           hexadecimal(selected->m_sel_addr, 8);
}

std::string bits_of(const reg_bitmask& field) {
    const int high = field.shift() + std::popcount(field.mask()) - 1;
    return std::to_string(high) + ".." + std::to_string(field.shift());
}

/** "cycles" of "[0-15]cycles"; nothing of other help texts. */
std::string unit_in(const std::string& help) {
    if (!help.starts_with('[')) {
        return "";
    }
    return help.substr(help.find(']') + 1);
}

} // namespace

knob_facts facts_of(const knob& k) {
    const kind_facts its_kind = facts_of_kind(k.kind);
    knob_facts facts;
    facts.kind = its_kind.name;
    facts.legal = legal_values(k);
    facts.unit = its_kind.unit;
    facts.help = its_kind.help;
    std::string help;
    k.property_of->get_help(help);
    if (help != "no desc" && help != "no help.") {
        facts.help = help;
    }
    if (const std::string unit = unit_in(help); !unit.empty()) {
        facts.unit = unit;
    }
    if (k.in_register()) {
        facts.address = address_of(k);
        facts.bits = bits_of(*k.field);
    } else if (k.kind == knob_kind::set) {
        facts.address = k.lanes.front()->name() + " to " + k.lanes.back()->name();
    } else {
        facts.address = file_name(k);
    }
    return facts;
}
