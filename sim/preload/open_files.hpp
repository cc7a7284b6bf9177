#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <string>

/** A file of the board that is open. */
struct board_file {
    std::string path;   ///< as the program gave it
    std::string before; ///< what it held, if it is open for writing
};

/** Which descriptors of the process are open on a path of the board. Safe between threads. */
class open_files {
public:
    open_files() = default;
    open_files(const open_files&) = delete;
    open_files& operator=(const open_files&) = delete;
    ~open_files();

    /** False for a descriptor beyond the first 1024: there is no place to keep it. */
    bool remember(int descriptor, const board_file& file);

    /** The file, or null for a descriptor that is not the board's. */
    const board_file* find(int descriptor) const;

    /** As find, but the descriptor is the board's no longer. */
    std::unique_ptr<board_file> forget(int descriptor);

private:
    static constexpr std::size_t places = 1024;

    std::array<std::atomic<board_file*>, places> m_files{};
};
