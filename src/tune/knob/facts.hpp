#pragma once

#include <string>

#include "tune/knob/knob.hpp"

/** What is known of a property, as texts for a reader. Finding it out touches no hardware. */
struct knob_facts {
    std::string kind;       ///< "field", "mapped field", "DQ delay" ...
    std::string legal;      ///< the values that it takes
    std::string unit;       ///< "ohm", "cycles" ..., or "-"
    std::string address;    ///< of the word, and the selector behind which it lies; or the file
    std::string bits = "-"; ///< highest and lowest, "3..0"
    std::string help;       ///< its help text or, where that says nothing, what its kind stands for
};

/** @throw std::logic_error for a kind of register that is not known */
knob_facts facts_of(const knob& k);
