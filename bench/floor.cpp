// The least that can be done for one word: takes the tool's lock, reads the word, prints it.

#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>

int main(int argc, char* argv[]) {
    const unsigned long address = argc > 1 ? std::strtoul(argv[1], nullptr, 0) : 0;
    const int lock = open("/tmp/brisel.lock", O_RDWR | O_CREAT, 0666);
    const int memory = open("/dev/zeb_mem", O_RDWR | O_SYNC);
    if (lock < 0 || flock(lock, LOCK_EX) != 0 || memory < 0) {
        return 1;
    }
    void* const page = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, memory,
                            static_cast<off_t>(address & ~0xfffUL));
    if (page == MAP_FAILED) {
        return 1;
    }
    const unsigned int word =
        *reinterpret_cast<volatile unsigned int*>(static_cast<char*>(page) + (address & 0xfff));
    munmap(page, 4096);
    std::printf("0x%08x\n", word);
    return 0;
}
