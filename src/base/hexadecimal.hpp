#pragma once

#include <string>

/**
 * "0x" and the number in lower-case hexadecimal digits.
 * @param digits how many digits there are at least; zeros go in front
 */
std::string hexadecimal(unsigned int number, int digits = 1);
