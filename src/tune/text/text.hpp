#pragma once

#include <string>
#include <string_view>
#include <vector>

/** Without the blanks, tabs and line ends around it. */
std::string_view without_blanks(std::string_view text);

/** For a message: in quotes, and no more of it than a line has room for. */
std::string in_quotes(std::string_view text);

/** What is not printable ASCII as \xNN: a terminal takes it for nothing else. Line feeds stay. */
std::string printable(std::string_view text);

/** "1 point", "2 points". */
std::string counted(std::size_t count, const std::string& noun);

/** The lines of a text, without their ends. */
std::vector<std::string_view> lines_of(std::string_view text);

/** A text in lines of so many characters, where its words have room: broken at single blanks. */
std::vector<std::string> in_lines(std::string_view text, std::size_t width);

/** All pieces, with the same text between each two. */
std::string joined(const std::vector<std::string>& pieces, const char* between);
