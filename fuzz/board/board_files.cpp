#include "board/board_files.hpp"

#include <filesystem>

#include "support/text_file.hpp"

namespace {

std::optional<std::string> content_of(const std::string& path) {
    return std::filesystem::exists(path) ? std::optional(text_of(path)) : std::nullopt;
}

} // namespace

void board_files::reset(const file_contents& contents) {
    for (const auto& [board_path, text] : contents) {
        const std::string file = path(board_path);
        if (content_of(file) == text) {
            continue;
        }
        std::filesystem::remove(file);
        if (text) {
            std::filesystem::create_directories(std::filesystem::path(file).parent_path());
            write_text(file, *text);
        }
    }
    m_reset_to = contents;
}

file_contents board_files::contents() const {
    file_contents now;
    for (const auto& [board_path, text] : m_reset_to) {
        now[board_path] = content_of(path(board_path));
    }
    return now;
}

std::string board_files::path(const std::string& board_path) const {
    return m_dir.path().string() + board_path;
}
