#include "base/hexadecimal.hpp"

#include <cstdio>

std::string hexadecimal(unsigned int number, int digits) {
    char text[sizeof "0x12345678"];
    std::snprintf(text, sizeof text, "0x%0*x", digits, number);
    return text;
}
