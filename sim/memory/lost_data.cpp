#include "memory/lost_data.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <string_view>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "model/board_paths.hpp"

namespace fs = std::filesystem;

namespace {

/** By device and inode, how much of a file would be left, in bytes. */
using safe_sizes = std::map<std::pair<std::uint64_t, std::uint64_t>, std::int64_t>;

safe_sizes read_sizes(const std::string& file) {
    safe_sizes sizes;
    std::ifstream log(file);
    std::string event;
    std::uint64_t device = 0, inode = 0;
    std::int64_t size = 0;
    while (log >> event >> device >> inode >> size) {
        std::int64_t& safe = sizes.try_emplace({device, inode}, size).first->second;
        safe = event == "sync" ? size : std::min(safe, size); // to open can only cut, or begin anew
    }
    return sizes;
}

/** The flags with which a descriptor, /proc/PID/fd/N, was opened. */
unsigned int flags_of(const fs::path& descriptor) {
    const fs::path process = descriptor.parent_path().parent_path();
    std::ifstream info(process / "fdinfo" / descriptor.filename());
    std::string key, value;
    while (info >> key >> value && key != "flags:") {
    }
    return static_cast<unsigned int>(std::strtoul(value.c_str(), nullptr, 8));
}

void empty_pipe(const fs::path& descriptor) {
    const int pipe = open(descriptor.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    std::array<char, 4096> part{};
    while (read(pipe, part.data(), part.size()) > 0) {
    }
    close(pipe);
}

/** What a descriptor that is open for writing is open on loses. */
void lose_data(const fs::path& descriptor, const safe_sizes& sizes, bool is_spared) {
    struct stat64 file {};
    const unsigned int flags = flags_of(descriptor);
    if ((flags & O_ACCMODE) == O_RDONLY || stat64(descriptor.c_str(), &file) != 0) {
        return;
    }
    const std::string number = descriptor.filename().string();
    if (S_ISFIFO(file.st_mode) && (number == "1" || number == "2")) {
        empty_pipe(descriptor);
    } else if (S_ISREG(file.st_mode) && (flags & O_DSYNC) == 0 && !is_spared) {
        const auto found = sizes.find({file.st_dev, file.st_ino});
        const std::int64_t safe = found == sizes.end() ? 0 : found->second;
        if (safe < file.st_size) {
            [[maybe_unused]] const int cut = truncate64(descriptor.c_str(), safe);
        }
    }
}

} // namespace

void lose_unsynced_data(const std::vector<pid_t>& processes, const std::string& folder,
                        const std::vector<std::string>& spared) {
    const safe_sizes sizes = read_sizes(folder + "/synced");
    for (const pid_t process : processes) {
        std::error_code gone;
        for (const auto& entry :
             fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", gone)) {
            const std::string target = fs::read_symlink(entry.path(), gone).string();
            const bool is_spared =
                std::any_of(spared.begin(), spared.end(), [&target](const std::string& place) {
                    return is_at_or_below(target, place);
                });
            lose_data(entry.path(), sizes, is_spared);
        }
    }
}
