#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <system_error>

/** What this process has open and mapped at the moment, as the kernel tells it. */
namespace process_files {

/** The open descriptors by number, as text, and what each of them refers to. */
inline std::map<std::string, std::string> descriptors() {
    std::map<std::string, std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone; // the descriptor of the listing itself
        found[entry.path().filename().string()] =
            std::filesystem::read_symlink(entry.path(), gone).string();
    }
    return found;
}

/** The flags that a descriptor was opened with. */
inline int flags(const std::string& descriptor) {
    std::ifstream info("/proc/self/fdinfo/" + descriptor);
    std::string key, value;
    while (info >> key >> value && key != "flags:") {
    }
    return std::stoi(value, nullptr, 8);
}

/** Every mapping, a line each: addresses, rights, offset, device, inode, path. */
inline std::string mappings() {
    std::ifstream file("/proc/self/maps");
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace process_files
