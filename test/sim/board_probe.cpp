// Does to the device node what its arguments say, one step each, right or wrong:
//
//     open  open-async  map=ADDRESS  map-long=ADDRESS  unmap  close
//     read=ADDRESS  read-unaligned=ADDRESS  write=ADDRESS:WORD  write-two=ADDRESS
//     fork  crash
//
// A read prints the word. All addresses are physical, and lie in the page that is mapped; the crash
// lies elsewhere.

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr std::size_t page_bytes = 4096;

int descriptor = -1;
char* page = nullptr;

std::uint32_t number(const std::string& text) {
    return static_cast<std::uint32_t>(std::stoul(text, nullptr, 0));
}

volatile std::uint32_t& word_at(std::uint32_t address) {
    return *reinterpret_cast<volatile std::uint32_t*>(page + address % page_bytes);
}

struct [[gnu::packed]] unaligned_word {
    std::uint32_t word;
};

void open_node(int flags) {
    descriptor = open("/dev/zeb_mem", flags);
    if (descriptor < 0) {
        std::perror("open");
        std::exit(1);
    }
}

void map_page(std::uint32_t address, std::size_t length) {
    void* const start = mmap(nullptr, length, PROT_READ | PROT_WRITE, MAP_SHARED, descriptor,
                             static_cast<off_t>(address));
    if (start == MAP_FAILED) {
        std::perror("mmap");
        std::exit(1);
    }
    page = static_cast<char*>(start);
}

void write_word(const std::string& argument) {
    const std::size_t colon = argument.find(':');
    word_at(number(argument.substr(0, colon))) = number(argument.substr(colon + 1));
}

/** The child goes on with the next step; the parent waits for it, and then does so as well. */
void run_child_first() {
    std::fflush(stdout);
    if (fork() != 0) {
        wait(nullptr);
    }
}

void take_step(const std::string& step) {
    const std::size_t equals = step.find('=');
    const std::string verb = step.substr(0, equals);
    const std::string argument = equals == std::string::npos ? "" : step.substr(equals + 1);
    if (verb == "open") {
        open_node(O_RDWR | O_SYNC);
    } else if (verb == "open-async") {
        open_node(O_RDWR);
    } else if (verb == "map") {
        map_page(number(argument), page_bytes);
    } else if (verb == "map-long") {
        map_page(number(argument), 2 * page_bytes);
    } else if (verb == "read") {
        std::printf("0x%08x\n", word_at(number(argument)));
    } else if (verb == "read-unaligned") {
        void* const place = page + number(argument) % page_bytes;
        std::printf("0x%08x\n", static_cast<volatile unaligned_word*>(place)->word);
    } else if (verb == "write") {
        write_word(argument);
    } else if (verb == "write-two") {
        void* const place = page + number(argument) % page_bytes;
        *static_cast<volatile std::uint64_t*>(place) = 0;
    } else if (verb == "unmap") {
        munmap(page, page_bytes);
    } else if (verb == "close") {
        close(descriptor);
    } else if (verb == "fork") {
        run_child_first();
    } else if (verb == "crash") {
        std::raise(SIGSEGV);
    } else {
        std::fprintf(stderr, "no such step: %s\n", step.c_str());
        std::exit(1);
    }
}

} // namespace

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        take_step(argv[i]);
    }
}
