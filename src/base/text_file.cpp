#include "base/text_file.hpp"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstddef>
#include <span>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

namespace {

/** A file that is open for as long as the object lives, unless it could not be opened. */
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

    /** What comes next, up to the buffer's size; empty at the end and after an error. */
    std::string_view read_next(std::span<char> buffer) const {
        const ssize_t size = tried_again([&] { return read(m_fd, buffer.data(), buffer.size()); });
        return {buffer.data(), static_cast<std::size_t>(std::max(size, ssize_t{0}))};
    }

    /** Writes a text, or as much of it as the file takes. */
    void write_all(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t size = tried_again([&] { return write(m_fd, text.data(), text.size()); });
            if (size <= 0) {
                return;
            }
            text.remove_prefix(static_cast<std::size_t>(size));
        }
    }

private:
    /** The result of a transfer, which is repeated as often as a signal interrupts it. */
    template <class Transfer>
    static ssize_t tried_again(const Transfer& transfer) {
        for (;;) {
            const ssize_t size = transfer();
            if (size >= 0 || errno != EINTR) {
                return size;
            }
        }
    }

    const int m_fd;
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
    file.write_all(text);
    return true;
}
