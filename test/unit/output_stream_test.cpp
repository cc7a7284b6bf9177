// What a standard stream makes of texts and lines, and of a file that takes no more.

#include "output/output_stream.hpp"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include "output/write_all.hpp"
#include "support/captured_stream.hpp"
#include "support/interruptions.hpp"
#include "support/write_log.hpp"

namespace output_stream_test {

using testing::ElementsAre;
using testing::IsEmpty;

class OutputStream : public testing::Test {
protected:
    pipe_of_writes m_pipe;
    output_stream m_stream{m_pipe.descriptor()};
};

TEST_F(OutputStream, LineIsWrittenInOnePiece) {
    m_stream.print_line("one line");
    m_stream.print_line("");
    EXPECT_THAT(m_pipe.take(), ElementsAre("one line\n", "\n"));
    EXPECT_FALSE(m_stream.bad());
}

TEST_F(OutputStream, TextIsWrittenAtOnce) {
    m_stream.print("..");
    EXPECT_THAT(m_pipe.take(), ElementsAre(".."));
    m_stream.print("");
    EXPECT_THAT(m_pipe.take(), IsEmpty());
    EXPECT_FALSE(m_stream.bad());
}

TEST_F(OutputStream, NothingIsWrittenAfterANullPointerUntilTheBadBitIsTakenAway) {
    m_stream.print(nullptr);
    EXPECT_TRUE(m_stream.bad());
    m_stream.print("text");
    m_stream.print_line("line");
    EXPECT_THAT(m_pipe.take(), IsEmpty());
    m_stream.clear();
    EXPECT_FALSE(m_stream.bad());
    m_stream.print("text");
    EXPECT_THAT(m_pipe.take(), ElementsAre("text"));
}

TEST_F(OutputStream, WhatCannotBeWrittenSetsTheBadBit) {
    output_stream nowhere(-1);
    nowhere.print("text");
    EXPECT_TRUE(nowhere.bad());
    EXPECT_EQ(nowhere.redirect(m_pipe.descriptor()), -1);
    nowhere.print_line("line");
    EXPECT_TRUE(nowhere.bad());
    EXPECT_THAT(m_pipe.take(), IsEmpty());
}

TEST_F(OutputStream, StandardOnesCanBeCaughtTogetherAndOneByOne) {
    write_log log;
    EXPECT_EQ(standard_output.redirect(log.descriptor()), log.descriptor());
    standard_output.print("a");
    standard_error.print_line("b");
    standard_output.print_line("c");
    EXPECT_THAT(log.take(), ElementsAre("a", "b\n", "c\n"));
    {
        const captured_stream caught(standard_output);
        EXPECT_EQ(caught.text(), "");
        standard_output.print("one");
        EXPECT_EQ(caught.text(), "one");
        standard_output.print_line(" line");
        EXPECT_EQ(caught.text(), "one line\n");
    }
    EXPECT_THAT(log.take(), IsEmpty());
}

TEST(StandardStreamNumbers, AreOneAndTwo) {
    const int out = standard_output.redirect(-1);
    const int err = standard_error.redirect(-1);
    standard_output.redirect(out);
    standard_error.redirect(err);
    EXPECT_EQ(out, 1);
    EXPECT_EQ(err, 2);
}

TEST(WriteAll, WritesNothingOfAnEmptyText) {
    EXPECT_TRUE(write_all(-1, ""));
}

TEST(WriteAll, TellsThatADeviceIsFull) {
    const int full = open("/dev/full", O_WRONLY);
    EXPECT_FALSE(write_all(full, "text"));
    close(full);
}

/** Reads an end of a pipe to its end, some bytes at a time, and interrupts the writer before each.
 */
struct slow_reader {
    int descriptor;
    interruptions writer; // is made by the one that writes
    std::string text;

    static void* read_all(void* reader) {
        auto& self = *static_cast<slow_reader*>(reader);
        char piece[4096];
        ssize_t size = 0;
        do {
            self.writer.interrupt(); // when a part is written, and the pipe is full,
            self.writer.interrupt(); // and when nothing is
            self.writer.wait_for_call();
            size = read(self.descriptor, piece, sizeof piece);
            self.text.append(piece, static_cast<std::size_t>(size > 0 ? size : 0));
        } while (size > 0);
        return nullptr;
    }
};

TEST(WriteAll, GoesOnAfterSignalsAndPartsThatWereWritten) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    fcntl(ends[1], F_SETPIPE_SZ, 4096);

    std::string text;
    for (int i = 0; i < 5000; ++i) {
        text += std::to_string(i) + " ";
    }
    slow_reader reader{ends[0], {}, ""};
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, nullptr, slow_reader::read_all, &reader), 0);
    EXPECT_TRUE(write_all(ends[1], text));
    close(ends[1]);
    pthread_join(thread, nullptr);
    EXPECT_EQ(reader.text, text);
    close(ends[0]);
}

} // namespace output_stream_test
