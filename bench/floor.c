/* The least that can be done for one word: takes the tool's lock, reads the word, prints it. */
#include <fcntl.h>
#include <stdio.h>
#include <stdlib.h>
#include <sys/file.h>
#include <sys/mman.h>

int main(int argc, char* argv[]) {
    const unsigned long address = argc > 1 ? strtoul(argv[1], NULL, 0) : 0;
    const int lock = open("/tmp/brisel.lock", O_RDWR | O_CREAT, 0666);
    const int memory = open("/dev/zeb_mem", O_RDWR | O_SYNC);
    if (lock < 0 || flock(lock, LOCK_EX) != 0 || memory < 0) {
        return 1;
    }
    char* page =
        mmap(NULL, 4096, PROT_READ | PROT_WRITE, MAP_SHARED, memory, (off_t)(address & ~0xffful));
    if (page == MAP_FAILED) {
        return 1;
    }
    const unsigned int word = *(volatile unsigned int*)(page + (address & 0xfff));
    munmap(page, 4096);
    printf("0x%08x\n", word);
    return 0;
}
