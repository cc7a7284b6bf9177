#pragma once

#include <map>
#include <optional>
#include <string>

#include "support/temp_dir.hpp"

/** Contents of files by their absolute path on the board, nothing for one that is not there. */
using file_contents = std::map<std::string, std::optional<std::string>>;

/** The files of a board, in a folder of its own that goes with the object. */
class board_files {
public:
    board_files() = default;
    explicit board_files(const file_contents& contents) { reset(contents); }

    /** The files are there with these contents, and there are no others. */
    void reset(const file_contents& contents);

    /** What they held after the last `reset`. */
    const file_contents& at_first() const { return m_reset_to; }

    /** What the files hold now: those of the last `reset`. */
    file_contents contents() const;

    /** Where a file or folder of the board lies. */
    std::string path(const std::string& board_path) const;

private:
    temp_dir m_dir;
    file_contents m_reset_to;
};
