#pragma once

#include <functional>

#include "checker/invariant_checker.hpp"

namespace fuzz {

/**
 * Calls a function in a copy of this process: what it leaves behind in memory, such as registers
 * that were read and properties that were freed, is gone afterwards. The coverage counters that a
 * fuzzing engine reads are brought back.
 * @return what the function returned, and one line more if the copy ended in any other way than
 *         by returning: by a signal, by a sanitizer, or not within ten seconds
 */
findings in_separate_process(const std::function<findings()>& run);

} // namespace fuzz
