#pragma once

#include <string>
#include <vector>

#include "tune/board/hardware.hpp"
#include "tune/knob/knobs.hpp"

/**
 * Watches the lanes of the DDR PHYs that some knobs belong to. A driver of the kernel that moves
 * the same select register can turn a write into one of another lane.
 */
class lane_watch {
public:
    /** @param targets the knobs that are to be set; any of a PHY, or of none */
    lane_watch(const knobs& all, const std::vector<const knob*>& targets);

    /** Reads what the lanes hold. Under the lock. */
    void look();

    /**
     * Reads them again, and says which hold something else, though nobody set them, and which can
     * no longer be read. Under the lock.
     * @param but these, which were set
     */
    std::vector<std::string> changed(const std::vector<const knob*>& but);

private:
    std::vector<const knob*> m_lanes;
    std::vector<reading> m_readings;
};
