// What arrives at the descriptors behind the standard streams. Each test has a process for itself.

#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "base/output_stream.hpp"

namespace write_standard_stream_test {

/** A file that a descriptor is led to, and what has arrived in it. */
class file_behind {
public:
    explicit file_behind(int descriptor) { dup2(m_file, descriptor); }

    std::string text() const {
        char all[1000];
        return {all, static_cast<std::size_t>(pread(m_file, all, sizeof all, 0))};
    }

private:
    const int m_file = memfd_create("file", MFD_CLOEXEC);
};

void expect_in_process(const std::function<bool()>& holds) {
    EXPECT_EXIT(std::_Exit(holds() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST(WriteStandardStream, TextArrivesAtOnceInItsOwnStream) {
    expect_in_process([] {
        const file_behind out(STDOUT_FILENO);
        const file_behind err(STDERR_FILENO);
        const bool first = write_standard_stream(standard_stream::output, "no line") &&
                           out.text() == "no line" && err.text().empty();
        const bool second = write_standard_stream(standard_stream::error, "one line\n") &&
                            err.text() == "one line\n" && out.text() == "no line";
        return first && second;
    });
}

TEST(WriteStandardStream, TextOfNoCharactersIsWrittenEvenToADeviceThatIsFull) {
    expect_in_process([] {
        dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO);
        return write_standard_stream(standard_stream::output, "");
    });
}

TEST(WriteStandardStream, TextMayHoldNulAndBeLong) {
    expect_in_process([] {
        const file_behind out(STDOUT_FILENO);
        const std::string text = std::string("a\0b", 3) + std::string(900, 'x');
        return write_standard_stream(standard_stream::output, text) && out.text() == text;
    });
}

TEST(WriteStandardStream, DeviceThatIsFullIsTold) {
    expect_in_process([] {
        dup2(open("/dev/full", O_WRONLY), STDOUT_FILENO);
        dup2(open("/dev/full", O_WRONLY), STDERR_FILENO);
        return !write_standard_stream(standard_stream::output, "text") &&
               !write_standard_stream(standard_stream::error, "text");
    });
}

// As a test, or another kind of property, may well do.
TEST(WriteStandardStream, TextKeepsItsPlaceAmongThoseOfTheCppStreams) {
    expect_in_process([] {
        const file_behind out(STDOUT_FILENO);
        std::cout << "a";
        write_standard_stream(standard_stream::output, "b");
        std::cout << "c";
        write_standard_stream(standard_stream::output, "d");
        return out.text() == "abcd";
    });
}

} // namespace write_standard_stream_test
