#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <vector>

#include <gtest/gtest.h>

// This program is linked with the operators of cli/memory.cpp, and runs on them as a whole.

namespace memory_test {

/** Keeps the compiler from leaving out an allocation, and from judging its size. */
void* block_of(std::size_t size) {
    const volatile std::size_t asked_for = size;
    void* volatile block = ::operator new(asked_for);
    return block;
}

bool is_aligned_for_every_type(const void* block) {
    return reinterpret_cast<std::uintptr_t>(block) % alignof(std::max_align_t) == 0;
}

TEST(Memory, BlocksAreAlignedForEveryType) {
    for (std::size_t size = 0; size < 100; ++size) {
        EXPECT_TRUE(is_aligned_for_every_type(block_of(size))) << size;
    }
}

TEST(Memory, BlocksOfNoBytesHaveAddressesOfTheirOwn) {
    void* first = block_of(0);
    void* second = block_of(0);
    EXPECT_NE(first, nullptr);
    EXPECT_NE(first, second);
    EXPECT_NE(second, block_of(1));
}

TEST(Memory, BlocksDoNotOverlap) {
    auto* first = static_cast<unsigned char*>(block_of(33));
    auto* second = static_cast<unsigned char*>(block_of(33));
    std::memset(first, 1, 33);
    std::memset(second, 2, 33);
    EXPECT_EQ(first[32], 1);
    EXPECT_EQ(second[32], 2);
}

TEST(Memory, BlockThatIsGivenBackIsLeftAlone) {
    void* first = block_of(40);
    ::operator delete(first);
    void* second = block_of(40);
    ::operator delete (second, std::size_t{40});
    EXPECT_NE(second, first);
    EXPECT_NE(block_of(40), second);
}

TEST(Memory, NullIsNoBlock) {
    ::operator delete(static_cast<void*>(nullptr));
    ::operator delete (static_cast<void*>(nullptr), std::size_t{8});
    EXPECT_NE(block_of(8), nullptr);
}

TEST(Memory, GrowsChunkByChunk) {
    constexpr std::size_t size = 10000; // several fit into a chunk
    std::vector<unsigned char*> blocks;
    for (unsigned char i = 0; i < 100; ++i) {
        blocks.push_back(static_cast<unsigned char*>(block_of(size)));
        std::memset(blocks.back(), i, size);
        EXPECT_TRUE(is_aligned_for_every_type(blocks.back()));
    }
    for (unsigned char i = 0; i < 100; ++i) {
        EXPECT_EQ(blocks[i][0], i);
        EXPECT_EQ(blocks[i][size - 1], i);
    }
}

TEST(Memory, BlocksLieSideBySide) {
    constexpr std::ptrdiff_t size = 48; // aligned as it is, on every processor
    auto* first = static_cast<std::byte*>(block_of(size));
    auto* second = static_cast<std::byte*>(block_of(size));
    auto* third = static_cast<std::byte*>(block_of(size));
    // Between two of them a chunk may end.
    EXPECT_TRUE(first - second == size || second - third == size);
}

TEST(Memory, BlockMayBeLargerThanAChunk) {
    constexpr std::size_t size = std::size_t{3} << 20;
    std::memset(block_of(size), 0x55, size);
}

TEST(Memory, MoreThanThereIsRaisesBadAlloc) {
    EXPECT_THROW(block_of(std::numeric_limits<std::size_t>::max()), std::bad_alloc);
    EXPECT_THROW(block_of(std::numeric_limits<std::size_t>::max() - 0xffff), std::bad_alloc);
    EXPECT_NE(block_of(8), nullptr); // and what is there stays usable
}

} // namespace memory_test
