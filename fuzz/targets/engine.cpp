// What the fuzzing engine calls: FUZZ_TARGET is one of the functions of targets.hpp.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "targets/targets.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const findings found = FUZZ_TARGET({reinterpret_cast<const char*>(data), size});
    for (const std::string& line : found) {
        std::cerr << line << '\n';
    }
    if (!found.empty()) {
        std::abort();
    }
    return 0;
}
