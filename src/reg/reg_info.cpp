#include "reg/reg_info.hpp"

#include "reg/mmap_access.hpp"

reg_info::~reg_info() = default;

void reg_info::_read() {
    m_value = mmap_read(m_addr);
}

void reg_info::commit() {
    mmap_write(m_addr, m_value);
    _read();
}

unsigned int reg_info::load(reg_subval*) {
    if (!m_loaded) {
        _read();
        m_loaded = true;
    }
    return m_value;
}

void reg_info::store(reg_subval*, unsigned int word) {
    m_value = word;
}

void reg_info::add_garbage() {
    info_garbages.m_list.push_back(this);
}
