/*
 * The memory of a short run: operator new and operator delete, for a process that builds some four
 * thousand small objects, does one thing and ends.
 *
 * With the C library's allocator, allocating and freeing those objects is half the cost of a run.
 * Here blocks are cut from a chunk, from its end downwards, so that aligning one is a single AND. A
 * freed block is not used again. Running out of memory raises bad_alloc. For one thread only.
 *
 * The address sanitizer only sees blocks from its own operators, so its builds use those.
 */

#if defined(__has_feature)
#define BRISEL_ADDRESS_SANITIZER __has_feature(address_sanitizer)
#elif defined(__SANITIZE_ADDRESS__)
#define BRISEL_ADDRESS_SANITIZER 1
#else
#define BRISEL_ADDRESS_SANITIZER 0
#endif

#if !BRISEL_ADDRESS_SANITIZER

#include <algorithm>
#include <cstddef>
#include <new>

#include <sys/mman.h>

namespace {

constexpr std::size_t alignment = __STDCPP_DEFAULT_NEW_ALIGNMENT__;

/**
 * How much is taken from the kernel at once: about four times what a run needs, since the kernel
 * provides only the pages that are touched.
 */
constexpr std::size_t chunk_size = 1 << 20;

// Constant-initialised: the first blocks are cut before any constructor of the program runs.
constinit std::byte* chunk = nullptr;
/** The number of bytes left at the chunk's beginning. */
constinit std::size_t left = 0;

/** @param size at most `left`, and not 0: every block has an address of its own */
std::byte* cut(std::size_t size) {
    left = (left - size) & ~(alignment - 1);
    return chunk + left;
}

/** Kept out of operator new, whose usual path then takes a dozen instructions. */
[[gnu::noinline]] std::byte* cut_from_new_chunk(std::size_t size) {
    const std::size_t new_size = std::max(size, chunk_size);
    void* new_chunk =
        mmap(nullptr, new_size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (new_chunk == MAP_FAILED) {
        throw std::bad_alloc();
    }
    chunk = static_cast<std::byte*>(new_chunk);
    left = new_size;
    return cut(size);
}

} // namespace

void* operator new(std::size_t size) {
    const std::size_t needed = std::max(size, std::size_t{1});
    return needed <= left ? cut(needed) : cut_from_new_chunk(needed);
}

void operator delete(void*) noexcept {}

void operator delete(void*, std::size_t) noexcept {}

#endif
