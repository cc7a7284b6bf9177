#include "process/instance_lock.hpp"

#include <cerrno>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

namespace instance_lock_test {

TEST(InstanceLock, ReleasingWithoutHavingTakenItDoesNothing) {
    errno = 0;
    release_instance_lock();
    EXPECT_EQ(errno, 0); // not even a call that fails
}

TEST(InstanceLock, ReleasingWithoutHavingTakenItLeavesTheLocksOfStandardStreamsAlone) {
    const temp_dir dir;
    const std::string path = dir.file("locked");
    write_text(path, "");
    const int locked = open(path.c_str(), O_RDWR);
    const int other = open(path.c_str(), O_RDWR);
    ASSERT_EQ(flock(locked, LOCK_EX), 0);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO}) {
        const int kept = dup(stream);
        dup2(locked, stream);
        release_instance_lock();
        const int taken = flock(other, LOCK_EX | LOCK_NB);
        dup2(kept, stream);
        close(kept);
        EXPECT_EQ(taken, -1) << "descriptor " << stream;
    }
    close(locked);
    close(other);
}

} // namespace instance_lock_test
