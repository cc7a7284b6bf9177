#pragma once

#include <string>

#include "platform/catalogue.hpp"
#include "property/property_group.hpp"
#include "property/property_register.hpp"
#include "property/property_set.hpp"

/** Fields of every kind and a set as properties, for as long as it lives. */
class registered_fields {
public:
    registered_fields() {
        property_group* const group = property_group::register_property_group("fields");
        for (const auto& list : {orlin_ddr_registers, ehci_registers, pcie_registers}) {
            for (reg_info* reg : list) {
                property_register::register_as_property(group, reg);
            }
        }
        const std::string lane = "orlin-ddra-read2::dq";
        property::register_property(
            group, new property_set(lane, {lane + "0", lane + "1", lane + "2", lane + "3",
                                           lane + "4", lane + "5", lane + "6", lane + "7"}));
    }
    ~registered_fields() {
        property_group::free_all();
        property::free_all();
    }
    registered_fields(const registered_fields&) = delete;
    registered_fields& operator=(const registered_fields&) = delete;
};
