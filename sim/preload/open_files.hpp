#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <memory>
#include <string>

namespace sim {

/** Which descriptors of the process are open on a path of the board. Safe between threads. */
class open_files {
public:
    open_files() = default;
    open_files(const open_files&) = delete;
    open_files& operator=(const open_files&) = delete;
    ~open_files();

    /** False for a descriptor beyond the first 1024: there is no place to keep it. */
    bool remember(int descriptor, const std::string& path);

    /** The path as the program gave it, or null for a descriptor that is not the board's. */
    const std::string* path_of(int descriptor) const;

    /** As path_of, but the descriptor is the board's no longer. */
    std::unique_ptr<std::string> forget(int descriptor);

private:
    static constexpr std::size_t places = 1024;

    std::array<std::atomic<std::string*>, places> m_paths{};
};

} // namespace sim
