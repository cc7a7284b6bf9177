#pragma once

#include <map>
#include <string>

#include "platform/orlin/dq_lanes.hpp"
#include "platform/orlin/reg_bitmask_dq.hpp"
#include "platform/orlin/reg_info_orlin_ddr.hpp"

namespace orlin {

/**
 * The DQ delays of one byte slice: a hardware word per lane behind one data register.
 *
 * Each field has a selector of its own, made of the field's part and the register's part, and a
 * word of its own, cached here per field. The inherited cached word only carries transfers.
 */
class reg_info_orlin_dq : public reg_info_orlin_ddr {
public:
    /** The parameters are those of `reg_info_orlin_ddr`; no lane has been read or stored yet. */
    reg_info_orlin_dq(std::string name, unsigned int sel_value, unsigned int sel_addr,
                      unsigned int data_addr, const dq_lanes& lanes);

    /**
     * Writes every field that was ever stored, in ascending order of the names. Each takes four
     * accesses: select the field, write its word, select the register, read the data register.
     * What is read back is not kept, and fields stay marked as stored: the next commit writes
     * them again.
     */
    void commit() override;

    /**
     * The field's word; the first call for a field selects it and reads it from the hardware.
     * @return 0xffffffff, without an access, for a field that is null or not a `reg_bitmask_dq`
     */
    unsigned int load(reg_subval* field) override;

    void store(reg_subval* field, unsigned int word) override;

protected:
    /** The word last read for the field or stored for it. */
    std::map<reg_subval*, unsigned int> m_dq_values;
    /** The field's word has been read from the hardware. */
    std::map<reg_subval*, bool> m_dq_loaded;
    /** A word has been stored for the field since construction. */
    std::map<reg_subval*, bool> m_dq_dirty;

private:
    void select(const reg_bitmask_dq& field) const;
};

} // namespace orlin
