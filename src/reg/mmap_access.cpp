#include "reg/mmap_access.hpp"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "base/hexadecimal.hpp"
#include "base/output_stream.hpp"

const char* fname = "/dev/zeb_mem";

namespace {

constexpr unsigned int page_size = 0x1000;

/** The word at one physical address, mapped for as long as the object lives. */
class mapped_word {
public:
    explicit mapped_word(unsigned int address)
        : m_fd(checked(open(fname, O_RDWR | O_SYNC), -1, "open", address)),
          m_page(
              checked(map_page(m_fd, address - address % page_size), MAP_FAILED, "map", address)),
          m_word(reinterpret_cast<volatile unsigned int*>(static_cast<unsigned char*>(m_page) +
                                                          address % page_size)) {}
    ~mapped_word() {
        munmap(m_page, page_size);
        close(m_fd);
    }
    mapped_word(const mapped_word&) = delete;
    mapped_word& operator=(const mapped_word&) = delete;

    volatile unsigned int& operator*() const { return *m_word; }

private:
    static void* map_page(int fd, unsigned int page_base) {
        return mmap(nullptr, page_size, PROT_READ | PROT_WRITE, MAP_SHARED, fd,
                    static_cast<off_t>(page_base));
    }

    /** The only check: passes on the result of a call, or ends the process when the call failed. */
    template <class T>
    static T checked(T result, T failure, const char* action, unsigned int address) {
        if (result == failure) {
            const std::string reason = std::strerror(errno);
            standard_error.print_line(std::string(action) + " " + fname + " for address " +
                                      hexadecimal(address, 8) + " failed: " + reason);
            std::abort();
        }
        return result;
    }

    int m_fd;
    void* m_page;
    volatile unsigned int* m_word;
};

} // namespace

unsigned int mmap_read(unsigned int address) {
    return *mapped_word(address);
}

unsigned int mmap_write(unsigned int address, unsigned int value) {
    *mapped_word(address) = value;
    return 0;
}
