#pragma once

#include <string>
#include <vector>

/** Rows of cells, all of the same length, as lines: columns aligned, two blanks between them. */
std::string as_table(const std::vector<std::vector<std::string>>& rows);

/** A text of printable ASCII as JSON writes it, in quotes. */
std::string json_text(const std::string& text);
