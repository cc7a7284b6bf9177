// The three standard descriptors, whatever of them the caller has closed.

#include "process/standard_descriptors.hpp"

#include <cstdlib>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace standard_streams_test {

bool is_open(int descriptor) {
    return fcntl(descriptor, F_GETFD) != -1;
}

bool is_null_device(int descriptor) {
    struct stat here {};
    struct stat null {};
    return fstat(descriptor, &here) == 0 && stat("/dev/null", &null) == 0 &&
           here.st_rdev == null.st_rdev && S_ISCHR(here.st_mode) &&
           (fcntl(descriptor, F_GETFL) & O_ACCMODE) == O_RDWR;
}

/** Ends the process: with 0 if the streams in `closed` end as the null device, and no other does.
 */
[[noreturn]] void occupy_and_exit(unsigned int closed) {
    const int other = open("/", O_RDONLY); // what the streams are that stay open
    for (int stream = 0; stream < 3; ++stream) {
        dup2(other, stream);
    }
    close(other);
    for (int stream = 0; stream < 3; ++stream) {
        if ((closed >> stream & 1) != 0) {
            close(stream);
        }
    }
    open_closed_standard_descriptors();
    bool good = !is_open(other);
    for (int stream = 0; stream < 3; ++stream) {
        good = good && is_null_device(stream) == ((closed >> stream & 1) != 0);
    }
    std::_Exit(good ? 0 : 1);
}

TEST(StandardStreams, ClosedOnesAreTheNullDeviceAndTheOthersAreLeftAlone) {
    for (unsigned int closed = 0; closed < 8; ++closed) {
        EXPECT_EXIT(occupy_and_exit(closed), testing::ExitedWithCode(0), "") << closed;
    }
}

} // namespace standard_streams_test
