#include "property/text_file.hpp"

#include <cctype>
#include <cerrno>
#include <cstddef>
#include <span>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "output/write_all.hpp"

namespace {

/** A file that is open, or could not be opened, for as long as the object lives. */
class open_file {
public:
    open_file(const std::string& path, int flags) : m_fd(open(path.c_str(), flags, 0666)) {}
    ~open_file() {
        if (is_open()) {
            close(m_fd);
        }
    }
    open_file(const open_file&) = delete;
    open_file& operator=(const open_file&) = delete;

    bool is_open() const { return m_fd >= 0; }

    /** What comes next, up to the buffer's size; nothing at the end, and after an error. */
    std::string_view read_next(std::span<char> buffer) const {
        ssize_t size = 0;
        do {
            size = read(m_fd, buffer.data(), buffer.size());
        } while (size < 0 && errno == EINTR);
        return {buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0};
    }

    int descriptor() const { return m_fd; }

private:
    int m_fd;
};

} // namespace

std::optional<std::string> first_word(const std::string& path) {
    const open_file file(path, O_RDONLY);
    if (!file.is_open()) {
        return std::nullopt;
    }
    std::string word;
    char buffer[64]; // such a file holds one number
    for (;;) {
        const std::string_view text = file.read_next(buffer);
        if (text.empty()) {
            return word;
        }
        for (const char c : text) {
            if (std::isspace(static_cast<unsigned char>(c)) == 0) {
                word += c;
            } else if (!word.empty()) {
                return word;
            }
        }
    }
}

bool replace_contents(const std::string& path, const std::string& text) {
    const open_file file(path, O_WRONLY | O_CREAT | O_TRUNC);
    if (!file.is_open()) {
        return false;
    }
    write_all(file.descriptor(), text);
    return true;
}
