#include "support/heap.hpp"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::size_t until_failure = 0;           // 0: none is to fail
std::atomic<std::size_t> live_blocks{0}; // some tests have a second thread

} // namespace

namespace heap {

failure::failure(std::size_t n) {
    until_failure = n;
}

failure::~failure() {
    until_failure = 0;
}

std::size_t live() {
    return live_blocks;
}

} // namespace heap

void* operator new(std::size_t size) {
    if (until_failure != 0 && --until_failure == 0) {
        throw std::bad_alloc();
    }
    void* block = std::malloc(size == 0 ? 1 : size);
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    ++live_blocks;
    return block;
}

void operator delete(void* block) noexcept {
    if (block != nullptr) {
        --live_blocks;
    }
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    operator delete(block);
}
