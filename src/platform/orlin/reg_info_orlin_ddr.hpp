#pragma once

#include <initializer_list>
#include <string>
#include <utility>

#include "reg/reg_info.hpp"

namespace orlin {

/**
 * A DDR PHY register without an address of its own: one of many words behind a data register.
 *
 * Which word the data register shows depends on the selector last written to the PHY's select
 * register, so the selector is written anew before every read and before every write.
 */
class reg_info_orlin_ddr : public reg_info {
public:
    /**
     * The register is always owned by `info_garbages`.
     * @tparam T         field kind of the list
     * @param sel_value  selector of the register, a 32-bit word
     * @param sel_addr   physical address of the PHY's select register
     * @param data_addr  physical address of the data register
     * @param fields     the fields, not owned
     */
    template <class T>
    reg_info_orlin_ddr(std::string name, unsigned int sel_value, unsigned int sel_addr,
                       unsigned int data_addr, std::initializer_list<T*> fields);

    /** Writes the selector, then reads the data register into the cached word. */
    void _read() override;

    /** Writes the selector and the cached word, then reads back through `_read`. */
    void commit() override;

    const unsigned int m_sel_addr;
    const unsigned int m_sel_value;
};

template <class T>
reg_info_orlin_ddr::reg_info_orlin_ddr(std::string name, unsigned int sel_value,
                                       unsigned int sel_addr, unsigned int data_addr,
                                       std::initializer_list<T*> fields)
    : reg_info(std::move(name), data_addr, fields, true), m_sel_addr(sel_addr),
      m_sel_value(sel_value) {}

} // namespace orlin
