#include "support/fake_memory.hpp"

#include <iomanip>

#include "reg/mmap_access.hpp"

namespace fake_memory {

std::map<unsigned int, unsigned int> words;
std::vector<access> log;
std::function<unsigned int(unsigned int, unsigned int)> kept;

void PrintTo(const access& a, std::ostream* out) {
    *out << (a.what == access::read ? "read " : "write ") << std::hex << std::setfill('0') << "0x"
         << std::setw(8) << a.address << " 0x" << std::setw(8) << a.word << std::dec;
}

void reset() {
    words.clear();
    log.clear();
    kept = nullptr;
}

} // namespace fake_memory

unsigned int mmap_read(unsigned int address) {
    const unsigned int word = fake_memory::words[address];
    fake_memory::log.push_back(fake_memory::read(address, word));
    return word;
}

unsigned int mmap_write(unsigned int address, unsigned int value) {
    fake_memory::log.push_back(fake_memory::write(address, value));
    fake_memory::words[address] = fake_memory::kept ? fake_memory::kept(address, value) : value;
    return 0;
}
