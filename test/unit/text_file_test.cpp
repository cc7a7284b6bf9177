// Files as sysfs and debugfs have them, and others that may lie in their places.

#include "base/text_file.hpp"

#include <cerrno>
#include <cstddef>
#include <optional>
#include <string>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/interruptions.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

namespace text_file_test {

class TextFile : public testing::Test {
protected:
    std::optional<std::string> first_word_of(const std::string& text) const {
        write_text(path, text);
        return first_word(path);
    }

    const temp_dir dir;
    const std::string path = dir.file("file");
};

TEST_F(TextFile, FirstWordEndsAtWhiteSpaceOrWithTheFile) {
    EXPECT_EQ(first_word_of("800000\n"), "800000");
    EXPECT_EQ(first_word_of("800000"), "800000");
    EXPECT_EQ(first_word_of("one two"), "one");
    for (const char space : {' ', '\t', '\n', '\v', '\f', '\r'}) {
        EXPECT_EQ(first_word_of(space + std::string("word") + space + "next"), "word");
    }
}

TEST_F(TextFile, FirstWordOfAFileWithoutAnyIsEmpty) {
    EXPECT_EQ(first_word_of(""), "");
    EXPECT_EQ(first_word_of(" \n\t"), "");
    EXPECT_EQ(first_word_of(std::string(1000, ' ')), "");
    EXPECT_EQ(first_word(dir.file("")), ""); // a folder can be opened, but not read
}

TEST_F(TextFile, FirstWordMayBeLongAndMayBeginLate) {
    const std::string spaces(1000, '\n');
    for (std::size_t size = 50; size < 150; ++size) {
        const std::string word(size, 'x');
        EXPECT_EQ(first_word_of(word), word);
        EXPECT_EQ(first_word_of(word + " y"), word);
        EXPECT_EQ(first_word_of(spaces + word + "\n"), word);
    }
}

TEST_F(TextFile, CharactersBeyondAsciiAndNulBelongToAWord) {
    EXPECT_EQ(first_word_of("\xff\xa0\x85 x"), "\xff\xa0\x85");
    EXPECT_EQ(first_word_of(std::string("1\0002 3", 5)), std::string("1\0002", 3));
}

/** Writes a word into a pipe that waits for it, after a signal has interrupted the waiting. */
struct late_writer {
    std::string path;
    interruptions reader; // is made by the one that reads

    static void* write_word(void* writer) {
        const auto& self = *static_cast<late_writer*>(writer);
        const int pipe = open(self.path.c_str(), O_WRONLY); // when the reader has opened it, too
        self.reader.interrupt();
        EXPECT_EQ(write(pipe, "wo", 2), 2);
        self.reader.wait_for_call();
        EXPECT_EQ(write(pipe, "rd\n", 3), 3);
        close(pipe);
        return nullptr;
    }
};

TEST_F(TextFile, FirstWordIsWaitedForAcrossSignals) {
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    late_writer writer{path, {}};
    pthread_t thread;
    ASSERT_EQ(pthread_create(&thread, nullptr, late_writer::write_word, &writer), 0);
    EXPECT_EQ(first_word(path), "word");
    pthread_join(thread, nullptr);
}

TEST_F(TextFile, SignalOfBeforeIsNotWaitedFor) {
    write_text(path, "");
    errno = EINTR;
    EXPECT_EQ(first_word(path), "");
}

TEST_F(TextFile, FileThatIsNotThereHasNoFirstWord) {
    EXPECT_EQ(first_word(dir.file("none")), std::nullopt);
}

TEST_F(TextFile, ContentsAreReplacedAsAWhole) {
    write_text(path, "a long text of before\n");
    EXPECT_TRUE(replace_contents(path, "12"));
    EXPECT_EQ(text_of(path), "12");
    EXPECT_TRUE(replace_contents(path, ""));
    EXPECT_EQ(text_of(path), "");
    EXPECT_TRUE(replace_contents(path, std::string(100000, '9')));
    EXPECT_EQ(text_of(path), std::string(100000, '9'));
}

TEST_F(TextFile, FileMayGetTheLowestDescriptorOfAll) {
    const int input = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    EXPECT_TRUE(replace_contents(path, "12"));
    EXPECT_EQ(first_word(path), "12");
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1); // and is closed again
    dup2(input, STDIN_FILENO);
    close(input);
}

TEST_F(TextFile, FileThatIsNotThereIsMade) {
    EXPECT_TRUE(replace_contents(path, "12"));
    EXPECT_EQ(text_of(path), "12");
    EXPECT_FALSE(replace_contents(dir.file("no/folder"), "12"));
    EXPECT_FALSE(replace_contents(dir.file(""), "12"));
}

TEST_F(TextFile, FileThatIsMadeIsAsOpenAsTheProcessLetsIt) {
    for (const mode_t closed : {0U, 077U}) {
        const std::string made = dir.file(std::to_string(closed));
        const mode_t before = umask(closed);
        EXPECT_TRUE(replace_contents(made, "1"));
        umask(before);
        struct stat status {};
        ASSERT_EQ(stat(made.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0666 & ~closed);
    }
}

TEST_F(TextFile, WriteThatADeviceRefusesGoesUnnoticed) {
    EXPECT_TRUE(replace_contents("/dev/full", "12"));
}

} // namespace text_file_test
