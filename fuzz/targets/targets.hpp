#pragma once

#include <string>

#include "checker/invariant_checker.hpp"

/*
 * What the fuzz targets do with an input, one function per target and named like it. Each returns
 * what the invariant checker found: nothing, if all is well.
 *
 * The input of a value target is lines of text. The first line says how it begins: "x" or "d" for
 * the number mode, then the words or the contents of the files, with blanks between. Every
 * further line is a value text for the property: they are set one after another, on the same
 * registers and files. What is missing counts as 0, or as a file that is not there.
 */

findings plain_value(const std::string& input);     ///< ebus-delay::rx: the word
findings mapped_value(const std::string& input);    ///< orlin-ddra::clkdrv: the word
findings read_only_value(const std::string& input); ///< pcie-ltssm::state-ro: the word
findings dq_value(const std::string& input);        ///< orlin-ddra-read2::dq3: eight lanes' words
findings word_value(const std::string& input);      ///< orlin-ddra1::scl: the word
findings set_value(const std::string& input);       ///< orlin-ddra-read2::dq: eight lanes' words
findings file_value(const std::string& input);      ///< mmc::rdqs: the file's first word

/** A tuning of brisel-tune: the input as it is. */
findings tuning_file(const std::string& input);

/** The log of a sweep: the input as it is. */
findings sweep_log_file(const std::string& input);

/** cpu_regulator::microvolts: voltage, lower and upper limit */
findings regulator_value(const std::string& input);
