// What a stream makes of texts and lines, and of a file that takes no more.

#include "base/output_stream.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_streams.hpp"

namespace output_stream_test {

using testing::ElementsAre;

class OutputStream : public testing::Test {
protected:
    OutputStream() { fake_streams::reset(); }

    output_stream m_stream{standard_stream::error};
};

TEST_F(OutputStream, LineIsOneWrite) {
    m_stream.print_line("one line");
    m_stream.print_line("");
    EXPECT_THAT(fake_streams::writes(), ElementsAre("one line\n", "\n"));
    EXPECT_FALSE(m_stream.bad());
}

TEST_F(OutputStream, TextIsWrittenAsItIs) {
    m_stream.print("..");
    m_stream.print("");
    EXPECT_THAT(fake_streams::writes(), ElementsAre("..", ""));
    EXPECT_FALSE(m_stream.bad());
}

TEST_F(OutputStream, NothingIsWrittenAfterANullPointer) {
    m_stream.print(nullptr);
    EXPECT_TRUE(m_stream.bad());
    m_stream.print("text");
    m_stream.print_line("line");
    EXPECT_THAT(fake_streams::writes(), ElementsAre());
}

TEST_F(OutputStream, NothingIsWrittenAfterWhatCouldNotBeWritten) {
    fake_streams::work = false;
    m_stream.print("text");
    EXPECT_TRUE(m_stream.bad());
    fake_streams::work = true;
    m_stream.print_line("line");
    EXPECT_TRUE(m_stream.bad());
    EXPECT_THAT(fake_streams::writes(), ElementsAre());
}

TEST_F(OutputStream, StandardOnesAreTwo) {
    standard_output.print("a");
    standard_error.print_line("b");
    standard_output.print_line("c");
    EXPECT_EQ(fake_streams::text(standard_stream::output), "ac\n");
    EXPECT_EQ(fake_streams::text(standard_stream::error), "b\n");
    EXPECT_THAT(fake_streams::writes(), ElementsAre("a", "b\n", "c\n"));
}

} // namespace output_stream_test
