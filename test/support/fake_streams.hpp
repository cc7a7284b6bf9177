#pragma once

#include <string>
#include <vector>

#include "base/output_stream.hpp"

/** A recording fake of `write_standard_stream`: linked in place of base/write_standard_stream.cpp.
 */
namespace fake_streams {

/** What was written to one of the streams since the last `reset`. */
std::string text(standard_stream stream);

/** The same of both, in order and each write by itself. */
std::vector<std::string> writes();

/** What was written and no test asked for. */
std::string unseen();

/** While false, nothing can be written to either stream. */
extern bool work;

/** Forgets what was written, and has the streams work. */
void reset();

} // namespace fake_streams
