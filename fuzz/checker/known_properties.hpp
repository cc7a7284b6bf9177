#pragma once

#include <map>
#include <string>

#include "checker/property_target.hpp"

/**
 * Every property of the tool by its name, from the tables of the catalogue that the tests keep: not
 * from the program, so that a slip in its catalogue is no slip of the checker. Throws
 * std::runtime_error or std::out_of_range if a table makes no sense.
 */
const std::map<std::string, property_target>& known_properties();
