#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tune/knob/knob.hpp"

/** What a knob holds, or why that cannot be told. */
struct reading {
    const knob* source;
    std::optional<std::uint32_t> code;
    std::string reason; ///< where there is no code

    /** Set where the same register has the same reason before: it need not be said again. */
    bool repeated = false;
};

/**
 * Finds out whether registers can be reached at all.
 * @throw mistake where there is a register among the knobs, and the memory device node cannot be
 * opened
 */
void check_node(const std::vector<const knob*>& knobs);

/**
 * Reads what these hold, anew. Where a register does not answer, nothing else of that register is
 * read.
 * @param knobs with codes of their own: no sets
 * @return one reading for each, in their order
 */
std::vector<reading> read_all(const std::vector<const knob*>& knobs);

/** The knobs of settings, in their order. */
std::vector<const knob*> targets_of(const std::vector<setting>& settings);

/** Says on standard error which cannot be read, each register once. @return whether there are any
 */
bool report_unreadable(const std::vector<reading>& readings);

/**
 * Writes settings of one register or one file, and reads them back from the hardware.
 * @return nothing when all are as wanted; else what is wrong
 */
std::optional<std::string> write_and_check(const std::vector<setting>& settings);
