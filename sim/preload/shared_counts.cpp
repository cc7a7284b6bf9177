#include "preload/shared_counts.hpp"

#include <new>

#include <sys/mman.h>

#include "preload/report.hpp"

shared_counts::shared_counts() {
    void* const memory =
        mmap(nullptr, sizeof(counts), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) {
        refuse("no memory");
    }
    m_counts = new (memory) counts{};
}

shared_counts::~shared_counts() {
    munmap(m_counts, sizeof(counts));
}
