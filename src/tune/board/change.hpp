#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tune/board/hardware.hpp"
#include "tune/knob/knob.hpp"

/** A code that is to become another one. */
struct change {
    const knob* target;
    std::uint32_t before;
    std::uint32_t after;
};

/**
 * What has to change on the board.
 * @param wanted for knobs with codes
 * @param now    what these hold, all of it readable, in the same order
 */
std::vector<change> changes_to(const std::vector<setting>& wanted, const std::vector<reading>& now);

/**
 * What is wrong with a change of a voltage: it is outside the regulator's limits. Empty for others.
 * @throw mistake when the limits cannot be read
 */
std::string voltage_mistake(const change& wanted);

/** What became of changes. */
struct change_report {
    std::string failure;            ///< empty where all is as wanted
    bool is_back = true;            ///< after a failure: all is as before
    std::vector<std::string> holds; ///< after a failure: what each written property holds now
};

/**
 * Makes the changes, or leaves the board as it is. Under the lock; nothing is printed.
 *
 * Rising regulators are set first, then registers and files in the order given, each word once,
 * then falling regulators. Each is read back. When one fails, all that was written is put back in
 * reverse order, the failing one included, since it may have taken effect.
 *
 * Signals that would end or stop the process wait meanwhile.
 */
change_report change_board(const std::vector<change>& changes);

/** The same, but all in the order given. */
change_report change_in_order(const std::vector<change>& changes);

/**
 * Puts changes back that were made in the order given: the last one first. Under the lock.
 * @return what became of that: `is_back`, and what each property holds
 */
change_report undo(const std::vector<change>& changes);
