#pragma once

#include <optional>
#include <string>

/**
 * The first white-space-delimited word of a text file, as sysfs and debugfs attributes are read.
 * The file is closed again on return.
 * @return an empty text when the file holds no word; nullopt when it cannot be opened
 */
std::optional<std::string> first_word(const std::string& path);

/**
 * Replaces the contents of a text file with a text, without a newline.
 * @return false when the file cannot be opened; a failure while writing is not noticed
 */
bool replace_contents(const std::string& path, const std::string& text);
