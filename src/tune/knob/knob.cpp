#include "tune/knob/knob.hpp"

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <typeinfo>
#include <utility>

#include "platform/orlin/reg_bitmask_dq.hpp"
#include "property/property_file.hpp"
#include "property/property_register.hpp"
#include "property/property_regulator_voltage.hpp"
#include "property/property_set.hpp"
#include "reg/reg_bitmask_map.hpp"
#include "reg/reg_bitmask_ro.hpp"
#include "tune/text/number_file.hpp"

namespace {

knob_kind kind_of_field(reg_subval& field) {
    const std::type_info& kind = typeid(field);
    if (kind == typeid(reg_bitmask)) {
        return knob_kind::field;
    }
    if (kind == typeid(reg_bitmask_map)) {
        return knob_kind::mapped;
    }
    if (kind == typeid(reg_bitmask_ro)) {
        return knob_kind::read_only;
    }
    if (kind == typeid(orlin::reg_bitmask_dq)) {
        return knob_kind::lane;
    }
    throw std::logic_error("unknown kind of field: " + field.get_name());
}

knob_kind kind_of(property& p) {
    const std::type_info& kind = typeid(p);
    if (kind == typeid(property_register)) {
        return kind_of_field(*dynamic_cast<property_register&>(p).m_subval);
    }
    if (kind == typeid(property_set)) {
        return knob_kind::set;
    }
    if (kind == typeid(property_file<int>)) {
        return knob_kind::file;
    }
    if (kind == typeid(property_regulator_voltage)) {
        return knob_kind::regulator;
    }
    throw std::logic_error("unknown kind of property: " + p.name);
}

property_file<int>& file_of(const knob& k) {
    return dynamic_cast<property_file<int>&>(*k.property_of);
}

property_regulator_voltage& regulator_of(const knob& k) {
    return dynamic_cast<property_regulator_voltage&>(*k.property_of);
}

/** The file that holds the number of a file or a regulator. */
std::string number_file(const knob& k) {
    return k.kind == knob_kind::file ? file_name(k) : file_name(k) + "/microvolts";
}

/** What is set beside the bits of a field whenever it is written. */
std::uint32_t beside(const knob& k) {
    return k.kind == knob_kind::lane ? k.field->mask() + 1 : 0;
}

} // namespace

knob::knob(property& p, std::string group_name)
    : property_of(&p), group(std::move(group_name)), kind(kind_of(p)) {
    if (typeid(p) == typeid(property_register)) {
        auto& of_register = dynamic_cast<property_register&>(p);
        reg = of_register.m_reg;
        field = &dynamic_cast<reg_bitmask&>(*of_register.m_subval);
    }
}

const std::string& knob::name() const {
    return property_of->name;
}

std::uint32_t knob::least() const {
    return kind == knob_kind::file ? static_cast<std::uint32_t>(file_of(*this).min()) : 0;
}

std::uint32_t knob::most() const {
    switch (kind) {
    case knob_kind::file:
        return static_cast<std::uint32_t>(file_of(*this).max());
    case knob_kind::regulator:
        return std::numeric_limits<std::int32_t>::max();
    default:
        return field->mask();
    }
}

std::uint32_t knob::page() const {
    constexpr std::uint32_t offset = 0xFFF;
    return reg == nullptr ? 0 : reg->m_addr & ~offset;
}

std::vector<const knob*> knob::parts() const {
    std::vector<const knob*> found = lanes;
    if (kind != knob_kind::set) {
        found.push_back(this);
    }
    return found;
}

const std::map<unsigned int, unsigned int>& key_map(const knob& mapped) {
    return dynamic_cast<reg_bitmask_map&>(*mapped.field).map();
}

const std::string& file_name(const knob& k) {
    return k.kind == knob_kind::file ? file_of(k).path() : regulator_of(k).path();
}

std::uint32_t read_code(const knob& k) {
    if (k.in_register()) {
        return k.reg->load(k.field) >> k.field->shift() & k.field->mask();
    }
    return read_number(number_file(k), k.least(), k.most());
}

std::pair<std::uint32_t, std::uint32_t> voltage_limits(const knob& regulator) {
    const auto read_limit = [&](const char* file) {
        return read_number(file_name(regulator) + file, 0, regulator.most());
    };
    return {read_limit("/min_microvolts"), read_limit("/max_microvolts")};
}

void write_codes(const std::vector<setting>& settings) {
    for (const auto& [k, code] : settings) {
        if (k->in_register()) {
            k->reg->store(k->field,
                          k->field->apply_subval(k->reg->load(k->field), code | beside(*k)));
        } else {
            write_number(number_file(*k), code);
        }
    }
    if (settings.front().target->in_register()) {
        settings.front().target->reg->commit();
    }
}
