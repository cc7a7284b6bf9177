#pragma once

#include <string>
#include <string_view>

/**
 * Writes a file whole or not at all: beside it first, to the disk, and then in its place. A file
 * that is there keeps its permissions, and a link stays one.
 * @throw mistake that names the file and the reason; the file is then as it was
 */
void write_whole(const std::string& path, const std::string& text);

/** Writes all of a text, to a file that takes it or reports an error: then -1. */
int write_all(int fd, std::string_view text);
