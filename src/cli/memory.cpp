#include <algorithm>
#include <cstddef>
#include <new>

#include <sys/mman.h>

/*
 * The program's memory: operator new and operator delete, for a process that builds some four
 * thousand small objects, does one thing and ends.
 *
 * With the C library's allocator, taking and giving back those objects is half the cost of a run,
 * and every page of them is a page fault. Here blocks are cut from a chunk that the kernel has
 * filled with pages in one call: from its end downwards, which takes an instruction less than
 * upwards. A block that is given back is not used again: the end of the process is near. Memory
 * that runs out raises bad_alloc. For one thread only.
 */

namespace {

constexpr std::size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

/**
 * What an ordinary run takes, in one call: so much for characters, and the rest for pointers. That
 * makes 60 pages on a 64-bit host and 38 on a 32-bit one.
 */
constexpr std::size_t first_chunk_size = 0x10000 + sizeof(void*) * 0x5800;

/** What a run that needs more takes each time. */
constexpr std::size_t chunk_size = 0x8000;

// Constant-initialised: the first blocks are cut before any constructor of the program runs.
constinit std::byte* chunk_begin = nullptr;
constinit std::byte* chunk_end = nullptr;

/**
 * The size of the block for `size` bytes: every block has an address of its own, even for 0. A
 * size too large to round up becomes 0.
 */
constexpr std::size_t aligned(std::size_t size) {
    return (size + (size == 0 ? alignment : alignment - 1)) & ~(alignment - 1);
}

std::byte* cut(std::size_t block_size) {
    chunk_end -= block_size;
    return chunk_end;
}

/** Kept out of operator new, whose usual way is then a dozen instructions. */
[[gnu::noinline]] std::byte* cut_from_new_chunk(std::size_t block_size) {
    if (block_size == 0) {
        throw std::bad_alloc();
    }
    const std::size_t size =
        std::max(block_size, chunk_begin == nullptr ? first_chunk_size : chunk_size);
    void* chunk = mmap(nullptr, size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_POPULATE, -1, 0);
    if (chunk == MAP_FAILED) {
        throw std::bad_alloc();
    }
    chunk_begin = static_cast<std::byte*>(chunk);
    chunk_end = chunk_begin + size;
    return cut(block_size);
}

} // namespace

void* operator new(std::size_t size) {
    const std::size_t block_size = aligned(size);
    // Less 1, so that the size that could not be rounded up, too, is more than there is.
    if (block_size - 1 >= static_cast<std::size_t>(chunk_end - chunk_begin)) {
        return cut_from_new_chunk(block_size);
    }
    return cut(block_size);
}

void operator delete(void*) noexcept {}

void operator delete(void*, std::size_t) noexcept {}
