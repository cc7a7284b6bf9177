#include "tune/board/shared_array.hpp"

#include <cerrno>
#include <cstring>
#include <string>

#include <sys/mman.h>

#include "tune/text/mistake.hpp"

shared_memory::shared_memory(std::size_t bytes)
    : m_bytes(bytes),
      m_begin(mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
    if (m_begin == MAP_FAILED) {
        throw mistake(std::string("no shared memory: ") + std::strerror(errno));
    }
}

shared_memory::~shared_memory() {
    munmap(m_begin, m_bytes);
}
