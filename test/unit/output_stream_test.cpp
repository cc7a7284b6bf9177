// What a standard stream makes of texts and lines, and of a file that takes no more.

#include "output/output_stream.hpp"

#include <array>
#include <cstdio>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <unistd.h>

#include "support/captured_stream.hpp"
#include "support/flush_log.hpp"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/** A pipe that keeps each write apart, behind a stdio file with the given buffering. */
class pipe_of_writes {
public:
    explicit pipe_of_writes(int buffering) {
        EXPECT_EQ(pipe2(m_ends.data(), O_DIRECT | O_NONBLOCK), 0);
        file = fdopen(m_ends[1], "w");
        EXPECT_EQ(std::setvbuf(file, nullptr, buffering, BUFSIZ), 0);
    }
    ~pipe_of_writes() {
        std::fclose(file);
        close(m_ends[0]);
    }
    pipe_of_writes(const pipe_of_writes&) = delete;
    pipe_of_writes& operator=(const pipe_of_writes&) = delete;

    /** The next write; empty when there was none. */
    std::string next() const {
        std::array<char, 256> text{};
        const ssize_t size = read(m_ends[0], text.data(), text.size());
        return {text.data(), size < 0 ? 0 : static_cast<std::size_t>(size)};
    }

    std::FILE* file = nullptr;

private:
    std::array<int, 2> m_ends{};
};

TEST(OutputStream, LineIsOneWriteWithABufferAndWithout) {
    for (const int buffering : {_IOFBF, _IONBF}) {
        const pipe_of_writes pipe(buffering);
        output_stream stream(pipe.file);
        stream.print_line("one line");
        stream.print_line("");
        EXPECT_EQ(pipe.next(), "one line\n");
        EXPECT_EQ(pipe.next(), "\n");
        EXPECT_EQ(pipe.next(), "");
    }
}

TEST(OutputStream, TextWaitsForTheLineBehindIt) {
    const pipe_of_writes pipe(_IOFBF);
    output_stream stream(pipe.file);
    stream.print("..");
    EXPECT_EQ(pipe.next(), "");
    stream.print_line("2");
    EXPECT_EQ(pipe.next(), "..2\n");
    EXPECT_FALSE(stream.bad());
}

TEST(OutputStream, NothingIsWrittenAfterANullPointerUntilTheBadBitIsTakenAway) {
    const pipe_of_writes pipe(_IONBF);
    output_stream stream(pipe.file);
    stream.print(nullptr);
    EXPECT_TRUE(stream.bad());
    stream.print("text");
    stream.print_line("line");
    EXPECT_EQ(pipe.next(), "");
    stream.clear();
    EXPECT_FALSE(stream.bad());
    stream.print("text");
    EXPECT_EQ(pipe.next(), "text");
}

TEST(OutputStream, LineThatAFullDeviceRefusesSetsTheBadBit) {
    for (const int buffering : {_IOFBF, _IONBF}) {
        std::FILE* full = std::fopen("/dev/full", "w");
        ASSERT_NE(full, nullptr);
        std::setvbuf(full, nullptr, buffering, BUFSIZ);
        output_stream stream(full);
        stream.print_line("line");
        EXPECT_TRUE(stream.bad());
        std::fclose(full);
    }
}

TEST(OutputStream, NothingIsFlushedAfterATextThatWasRefused) {
    const pipe_of_writes pipe(_IOFBF);
    output_stream stream(pipe.file);
    stream.print("waiting");
    stream.print(nullptr);
    stream.print_line("line");
    EXPECT_EQ(pipe.next(), "");
}

TEST(OutputStream, RedirectGivesBackTheFileBefore) {
    const pipe_of_writes first(_IONBF);
    const pipe_of_writes second(_IONBF);
    output_stream stream(first.file);
    EXPECT_EQ(stream.redirect(second.file), first.file);
    stream.print("text");
    EXPECT_EQ(first.next(), "");
    EXPECT_EQ(second.next(), "text");
    EXPECT_EQ(stream.redirect(first.file), second.file);
}

TEST(OutputStream, StandardOnesAreTheTwoOfTheProcess) {
    std::FILE* out = standard_output().redirect(stdout);
    std::FILE* err = standard_error().redirect(stderr);
    EXPECT_EQ(out, stdout);
    EXPECT_EQ(err, stderr);
    EXPECT_EQ(&standard_output(), &standard_output());
    EXPECT_EQ(&standard_error(), &standard_error());
}

TEST(OutputStream, BothCanBeCaughtInOneSequence) {
    const flush_log log;
    standard_output().print("a");
    standard_output().print_line("b");
    standard_error().print_line("c");
    standard_output().print("d");
    EXPECT_THAT(log.pieces(), ElementsAre("ab\n", "c\n"));
}

TEST(OutputStream, CapturedTextGoesNowhereElse) {
    const flush_log log;
    {
        const captured_stream caught(standard_output());
        EXPECT_EQ(caught.text(), "");
        standard_output().print("one");
        EXPECT_EQ(caught.text(), "one");
        standard_output().print_line(" line");
        EXPECT_EQ(caught.text(), "one line\n");
    }
    EXPECT_THAT(log.pieces(), IsEmpty());
}

} // namespace
