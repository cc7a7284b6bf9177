#pragma once

#include <string>

#include "model/eyes.hpp"
#include "model/register_table.hpp"

/** The folder of a board, and the one that every board begins as a copy of. */
class board_folder {
public:
    /** `path` is that of the folder. Throws std::runtime_error where there is none. */
    explicit board_folder(const std::string& path);

    /** The folder from the root, without symbolic links. */
    const std::string& path() const { return m_path; }

    /** Throws input_error for a table that makes no sense, as do all that read one. */
    register_table registers() const;

    /** The eyes of these registers: those of this board, or else those that every board has. */
    eyes eyes_of(const register_table& registers) const;

    /**
     * What switching off and on does. The registers and the files hold what they do at power-on,
     * except that delays differ by what `retrain` allows, in the same way on every board's N-th
     * boot. The boot has a new name. The lock file, the faults and the eyes stay.
     */
    void reset() const;

private:
    std::string m_path;
};
