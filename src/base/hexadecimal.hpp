#pragma once

#include <string>

/**
 * "0x" and the number in lower-case hexadecimal digits.
 * @param digits the minimum number of digits; shorter numbers get leading zeros
 */
std::string hexadecimal(unsigned int number, int digits = 1);
