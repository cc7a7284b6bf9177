#include "tune/plot/canvas.hpp"

#include <cstdlib>
#include <map>
#include <string>

#include <gtest/gtest.h>

// What a stream that is no terminal shows, by the environment.

namespace canvas_test {

/** The canvas of a closed stream with these variables and no others of their kind. */
canvas with(const std::map<std::string, std::string>& variables) {
    for (const char* const name : {"LANG", "LC_ALL", "LC_CTYPE", "COLUMNS", "NO_COLOR", "TERM"}) {
        const auto found = variables.find(name);
        if (found == variables.end()) {
            unsetenv(name);
        } else {
            setenv(name, found->second.c_str(), 1);
        }
    }
    return canvas_of(-1);
}

TEST(Canvas, IsAsWideAsItIsTold) {
    EXPECT_EQ(with({}).width, 80U);
    EXPECT_EQ(with({{"COLUMNS", "132"}}).width, 132U);
    EXPECT_EQ(with({{"COLUMNS", "65535"}}).width, 65535U);
    EXPECT_EQ(with({{"COLUMNS", "5"}}).width, 20U); // or else there is no room for anything
    for (const char* const other : {"", "0", "x", "40x", "65536", "-1"}) {
        EXPECT_EQ(with({{"COLUMNS", other}}).width, 80U) << other;
    }
}

TEST(Canvas, HasTheCharactersOfTheLocale) {
    EXPECT_FALSE(with({}).utf8);
    EXPECT_TRUE(with({{"LANG", "C.UTF-8"}}).utf8);
    EXPECT_TRUE(with({{"LANG", "de_DE.utf8@euro"}}).utf8);
    EXPECT_FALSE(with({{"LANG", "de_DE.ISO-8859-1"}}).utf8);
    EXPECT_TRUE(with({{"LANG", "C"}, {"LC_CTYPE", "C.UTF-8"}}).utf8);
    EXPECT_FALSE(with({{"LC_ALL", "C"}, {"LC_CTYPE", "C.UTF-8"}}).utf8);
    EXPECT_TRUE(with({{"LC_ALL", ""}, {"LC_CTYPE", "C.UTF-8"}}).utf8);
}

TEST(Canvas, HasColorsOnATerminalAlone) {
    EXPECT_FALSE(with({{"TERM", "xterm"}}).color);
}

} // namespace canvas_test
