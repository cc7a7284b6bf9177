#include <algorithm>
#include <cstddef>
#include <new>

#include <sys/mman.h>

/*
 * The program's memory: operator new and operator delete, for a process that builds some four
 * thousand small objects, does one thing and ends.
 *
 * With the C library's allocator, taking and giving back those objects is half the cost of a run,
 * and every page of them is a page fault. Here blocks are cut from chunks that the kernel fills
 * with pages in one call each: from the end downwards, where rounding down is all that alignment
 * takes. A block that is given back is not used again: the end of the process is near. Memory that
 * runs out raises bad_alloc. For one thread only.
 */

namespace {

constexpr std::size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

/**
 * What is taken from the kernel at once, and is enough for an ordinary run: so much for characters,
 * and the rest for pointers. That makes 60 pages on a 64-bit host and 38 on a 32-bit one.
 */
constexpr std::size_t chunk_size = 0x10000 + sizeof(void*) * 0x5800;

// Constant-initialised: the first blocks are cut before any constructor of the program runs.
constinit std::byte* chunk = nullptr;
/** The bytes at the chunk's beginning that are not cut yet. */
constinit std::size_t uncut = 0;

/** @param size at most `uncut`, and not 0: every block has an address of its own */
std::byte* cut(std::size_t size) {
    uncut = (uncut - size) & ~(alignment - 1);
    return chunk + uncut;
}

/** Kept out of operator new, whose usual way is then a dozen instructions. */
[[gnu::noinline]] std::byte* cut_from_new_chunk(std::size_t size) {
    const std::size_t new_size = std::max(size, chunk_size);
    void* new_chunk = mmap(nullptr, new_size, PROT_READ | PROT_WRITE,
                           MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (new_chunk == MAP_FAILED) {
        throw std::bad_alloc();
    }
    chunk = static_cast<std::byte*>(new_chunk);
    uncut = new_size;
    return cut(size);
}

} // namespace

void* operator new(std::size_t size) {
    const std::size_t needed = std::max(size, std::size_t{1});
    return needed <= uncut ? cut(needed) : cut_from_new_chunk(needed);
}

void operator delete(void*) noexcept {}

void operator delete(void*, std::size_t) noexcept {}
