#include "cli/instance_lock.hpp"

#include <cerrno>

#include <gtest/gtest.h>

namespace {

TEST(InstanceLock, ReleasingWithoutHavingTakenItDoesNothing) {
    errno = 0;
    release_instance_lock();
    EXPECT_EQ(errno, 0); // not even a call that fails
}

} // namespace
