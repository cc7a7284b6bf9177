#pragma once

#include <cstddef>

/**
 * The memory of the test program: `operator new` and `operator delete` are replaced, so that a
 * test can make an allocation fail and can count what is allocated.
 */
namespace heap {

/** Makes one allocation throw std::bad_alloc while the object lives. One at a time. */
class failure {
public:
    /** @param n which allocation from now on: 1 is the next one */
    explicit failure(std::size_t n);
    ~failure();
    failure(const failure&) = delete;
    failure& operator=(const failure&) = delete;
};

/** The number of blocks allocated and not yet freed. */
std::size_t live();

} // namespace heap
