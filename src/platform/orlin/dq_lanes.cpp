#include "platform/orlin/dq_lanes.hpp"

namespace orlin {

dq_lanes::dq_lanes(std::initializer_list<reg_bitmask_dq*> fields)
    : by_name(fields_by_name(fields)) {
    for (reg_bitmask_dq* field : fields) {
        words.emplace(field, 0);
        flags.emplace(field, false);
    }
}

} // namespace orlin
