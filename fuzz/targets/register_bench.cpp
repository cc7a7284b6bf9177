#include "targets/register_bench.hpp"

#include <initializer_list>
#include <stdexcept>

#include "checker/known_properties.hpp"
#include "model/ddr_phy.hpp"
#include "platform/catalogue.hpp"
#include "platform/orlin/reg_info_orlin_dq.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"

namespace {

const reg_info& catalogue_register(const std::string& name) {
    for (const auto& list : {orlin_ddr_registers, ebus_registers, pcie_registers}) {
        for (const reg_info* reg : list) {
            if (reg->m_name == name) {
                return *reg;
            }
        }
    }
    throw std::out_of_range(name);
}

/** A register of the same kind with the same fields that was not used yet; `info_garbages` has it.
 */
reg_info* fresh_copy(const reg_info& original) {
    const std::initializer_list<reg_bitmask*> no_fields;
    reg_info* copy = nullptr;
    if (const auto* dq = dynamic_cast<const orlin::reg_info_orlin_dq*>(&original)) {
        copy = new orlin::reg_info_orlin_dq(dq->m_name, dq->m_sel_value, dq->m_sel_addr, dq->m_addr,
                                            {});
    } else if (const auto* ddr = dynamic_cast<const orlin::reg_info_orlin_ddr*>(&original)) {
        copy = new orlin::reg_info_orlin_ddr(ddr->m_name, ddr->m_sel_value, ddr->m_sel_addr,
                                             ddr->m_addr, no_fields);
    } else {
        copy = new reg_info(original.m_name, original.m_addr, no_fields, true);
    }
    copy->m_subvals = original.m_subvals;
    return copy;
}

board_model model_of(const reg_info& reg, const value_input& words) {
    register_table table;
    std::size_t index = 0;
    for (const auto& [field_name, field] : reg.m_subvals) {
        const register_key place =
            known_properties().at(reg.m_name + "::" + field_name).fields.front().place;
        const auto banked = find_banked_register(place.address);
        if (banked && !table.has_register(place.address)) {
            table.add({banked->select_address, std::nullopt}, {0, false, "select"});
        }
        if (table.find(place) == nullptr) {
            table.add(place, {words.number(index++), false, field_name});
        }
    }
    return board_model(table, {});
}

} // namespace

register_bench::register_bench(const std::string& register_name, const value_input& words)
    : m_board(model_of(catalogue_register(register_name), words)) {
    property_register::register_as_property(property_group::register_property_group("bench"),
                                            fresh_copy(catalogue_register(register_name)));
}

register_bench::~register_bench() {
    property_group::free_all();
    property::free_all();
    delete info_garbages.m_list.back();
    info_garbages.m_list.pop_back();
}
