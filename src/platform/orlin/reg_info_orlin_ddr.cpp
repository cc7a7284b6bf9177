#include "platform/orlin/reg_info_orlin_ddr.hpp"

#include "reg/mmap_access.hpp"

namespace orlin {

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
