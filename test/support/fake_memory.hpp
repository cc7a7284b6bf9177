#pragma once

#include <functional>
#include <map>
#include <ostream>
#include <vector>

/**
 * A recording fake of `mmap_read` and `mmap_write`: linked in place of reg/mmap_access.cpp.
 *
 * Words are plain memory, 0 until written or set. Every access is logged in order.
 */
namespace fake_memory {

struct access {
    enum kind { read, write };
    kind what;
    unsigned int address;
    unsigned int word;

    bool operator==(const access&) const = default;
};

void PrintTo(const access& a, std::ostream* out);

/** A read of an address that gave this word. */
constexpr access read(unsigned int address, unsigned int word) {
    return {access::read, address, word};
}

/** A write of a word to an address. */
constexpr access write(unsigned int address, unsigned int word) {
    return {access::write, address, word};
}

/** What the hardware holds. */
extern std::map<unsigned int, unsigned int> words;

/** The accesses since the last `reset`, or since the test cleared them. */
extern std::vector<access> log;

/** When set, gives the word that a write leaves behind: for bits that do not stick. */
extern std::function<unsigned int(unsigned int address, unsigned int word)> kept;

/** Forgets words, log and `kept`. */
void reset();

} // namespace fake_memory
