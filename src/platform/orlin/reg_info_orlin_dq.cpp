#include "platform/orlin/reg_info_orlin_dq.hpp"

#include <utility>

#include "reg/mmap_access.hpp"

namespace orlin {

reg_info_orlin_dq::reg_info_orlin_dq(std::string name, unsigned int sel_value,
                                     unsigned int sel_addr, unsigned int data_addr,
                                     const dq_lanes& lanes)
    : reg_info_orlin_ddr(std::move(name), sel_value, sel_addr, data_addr,
                         std::initializer_list<reg_bitmask_dq*>{}),
      m_dq_values(lanes.m_words), m_dq_loaded(lanes.m_flags), m_dq_dirty(lanes.m_flags) {
    m_subvals = lanes.m_by_name;
    m_loaded = true; // the single-word read path never runs for this kind
}

void reg_info_orlin_dq::commit() {
    for (const auto& [name, field] : m_subvals) {
        const auto* dq = dynamic_cast<const reg_bitmask_dq*>(field);
        if (dq == nullptr || !m_dq_dirty[field]) {
            continue;
        }
        select(*dq);
        m_value = m_dq_values[field];
        mmap_write(m_addr, m_value);
        _read();
    }
}

unsigned int reg_info_orlin_dq::load(reg_subval* field) {
    if (m_dq_loaded[field]) {
        return m_dq_values[field];
    }
    const auto* dq = dynamic_cast<const reg_bitmask_dq*>(field);
    if (dq == nullptr) {
        return 0xffffffff;
    }
    select(*dq);
    m_value = mmap_read(m_addr);
    m_dq_values[field] = m_value;
    m_dq_loaded[field] = true;
    return m_dq_values[field];
}

void reg_info_orlin_dq::store(reg_subval* field, unsigned int word) {
    m_dq_values[field] = word;
    m_dq_dirty[field] = true;
}

void reg_info_orlin_dq::select(const reg_bitmask_dq& field) const {
    mmap_write(m_sel_addr, field.m_sel | m_sel_value);
}

} // namespace orlin
