// A memory test of the simulated board, to be run on it. Exit status 0: all lanes pass. 1: those
// fail that it names. 2: there is no board, or it makes no sense. Further out the board dies, and
// with it every process on it, this one last.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "memory/board_folder.hpp"
#include "memory/lost_data.hpp"
#include "memory/stopped_board.hpp"

namespace {

/** The path of the trace from the root, or a folder of no files on a disk if there is none. */
std::string trace_file() {
    const char* const target = std::getenv("BRISEL_BOARD_TRACE");
    std::error_code none;
    const std::string path = std::filesystem::canonical(target == nullptr ? "" : target, none);
    return path.empty() ? "/proc" : path;
}

[[noreturn]] void die(const board_folder& board) {
    // Two tests must not stop each other. The lock ends with the process.
    flock(open(board.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), LOCK_EX);
    {
        const stopped_board others(board.path());
        std::vector<pid_t> all = others.processes();
        all.push_back(getpid());
        lose_unsynced_data(all, board.path(), {"/proc", "/sys", board.path(), trace_file()});
        board.reset();
    }
    std::raise(SIGKILL);
    std::abort();
}

int test_memory(const board_folder& board) {
    const register_table registers = board.registers();
    const eyes all = board.eyes_of(registers);
    std::vector<const lane_eye*> failing;
    for (const lane_eye& lane : all.lanes()) {
        const test_end end = all.end_of(lane);
        if (end == test_end::board_dies) {
            die(board);
        }
        if (end == test_end::fails) {
            failing.push_back(&lane);
        }
    }
    for (const lane_eye* const lane : failing) {
        std::printf("memory-test: %s reads wrong bits\n", lane->word->name.c_str());
    }
    if (failing.empty()) {
        std::printf("memory-test: %zu lanes pass\n", all.lanes().size());
    }
    return failing.empty() ? 0 : 1;
}

int fail(const char* message) {
    std::fprintf(stderr, "memory-test: %s\n", message);
    return 2;
}

} // namespace

int main(int argc, char** /*argv*/) {
    const char* const folder = std::getenv("BRISEL_BOARD");
    if (argc != 1) {
        return fail("takes no arguments");
    }
    if (folder == nullptr) {
        return fail("not on a board: start it with sim/board");
    }
    try {
        return test_memory(board_folder(folder));
    } catch (const std::exception& error) {
        return fail(error.what());
    }
}
