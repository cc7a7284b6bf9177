#include "platform/orlin/reg_info_orlin_ddr.hpp"

#include "reg/mmap_access.hpp"

namespace orlin {

reg_info_orlin_ddr::reg_info_orlin_ddr(std::string name, unsigned int sel_value,
                                       unsigned int sel_addr, unsigned int data_addr,
                                       const field_map& fields)
    : reg_info(std::move(name), data_addr, fields), m_sel_addr(sel_addr), m_sel_value(sel_value) {}

void reg_info_orlin_ddr::_read() {
    mmap_write(m_sel_addr, m_sel_value);
    m_value = mmap_read(m_addr);
}

void reg_info_orlin_ddr::commit() {
    mmap_write(m_sel_addr, m_sel_value);
    mmap_write(m_addr, m_value);
    _read();
}

} // namespace orlin
