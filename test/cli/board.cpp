#include "cli/board.hpp"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>

namespace fs = std::filesystem;

const int aborted = -SIGABRT;

namespace {

std::string contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

void write_file(const fs::path& path, const std::string& text) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

std::string new_folder() {
    std::string pattern = (fs::temp_directory_path() / "brisel-board-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::system_error(errno, std::generic_category(), pattern);
    }
    return pattern;
}

/** Where the program is: in the folder that $BRISEL_BUILD names, or else in this build's. */
std::string build_folder() {
    const char* const folder = std::getenv("BRISEL_BUILD");
    return folder == nullptr ? BRISEL_BUILD_DIR : folder;
}

bool is_emulated() {
    return std::getenv("BRISEL_EMULATOR") != nullptr;
}

/** What a program said, without what its emulator has to say when a signal ends a process. */
std::string without_emulator(std::string text) {
    if (is_emulated()) {
        const std::string saying = "qemu: uncaught target signal";
        for (std::size_t at = 0; (at = text.find(saying, at)) != text.npos;) {
            const std::size_t end = text.find('\n', at);
            text.erase(at, end == text.npos ? end : end + 1 - at);
        }
    }
    return text;
}

} // namespace

board_setup& board_setup::word(std::uint32_t address, std::uint32_t word) {
    m_words.push_back({{address, std::nullopt}, word});
    return *this;
}

board_setup& board_setup::word(std::uint32_t address, std::uint32_t selector, std::uint32_t word) {
    m_words.push_back({{address, selector}, word});
    return *this;
}

board_setup& board_setup::file(std::string path, std::string text) {
    m_files.emplace_back(std::move(path), std::move(text));
    return *this;
}

board_setup& board_setup::fault(std::string line) {
    m_faults.push_back(std::move(line));
    return *this;
}

board::board(const board_setup& setup) : m_folder(new_folder()) {
    const fs::path folder = m_folder;
    fs::copy(POWER_ON_DIR, folder / "state", fs::copy_options::recursive);
    const fs::path registers = folder / "state" / "registers";
    fs::create_directories(folder / "state" / "root" / "tmp"); // git keeps no empty folder
    std::istringstream text(contents(registers));
    register_table table = register_table::parse(text, registers.string());
    for (const auto& [key, word] : setup.m_words) {
        if (table.find(key) == nullptr) {
            throw std::invalid_argument("a test sets a word that the board does not have");
        }
        table.set_word(key, word);
    }
    std::ofstream out(registers);
    table.print(out);
    for (const auto& [path, file_text] : setup.m_files) {
        write_file(folder / "state" / ("root" + path), file_text);
    }
    std::ofstream faults(folder / "state" / "faults", std::ios::app);
    for (const std::string& fault : setup.m_faults) {
        faults << fault << '\n';
    }
}

board::~board() {
    std::error_code ignored;
    fs::remove_all(m_folder, ignored);
}

run_result board::run(const std::vector<std::string>& arguments) const {
    return capture(launch(arguments));
}

run_result board::capture(program_start program) const {
    const fs::path folder = m_folder;
    const descriptor in("/dev/null", O_RDONLY);
    const descriptor out(folder / "out", O_WRONLY | O_CREAT | O_TRUNC);
    const descriptor err(folder / "err", O_WRONLY | O_CREAT | O_TRUNC);
    program.in = in;
    program.out = out;
    program.err = err;
    const int status = wait_for(start(program));
    return {contents(folder / "out"), without_emulator(contents(folder / "err")), status};
}

program_start board::launch(const std::vector<std::string>& arguments,
                            const std::string& program) const {
    const fs::path folder = m_folder;
    program_start start{.words = {BOARD_LAUNCHER, "-b", (folder / "state").string(), "-T",
                                  (folder / "trace").string(), program},
                        .environment = {{"BRISEL_BUILD", build_folder()}}};
    start.words.insert(start.words.end(), arguments.begin(), arguments.end());
    return start;
}

program_start board::launch_bare(const std::vector<std::string>& arguments,
                                 const std::string& fault, const std::string& program) const {
    if (is_emulated()) {
        program_start start = launch(arguments, program);
        start.environment.emplace_back("BRISEL_BOARD_FAULTS", fault);
        return start;
    }
    const fs::path folder = m_folder;
    program_start start{.words = {BRISEL_BUILD_DIR "/" + program},
                        .environment = {{"BRISEL_BOARD", (folder / "state").string()},
                                        {"BRISEL_BOARD_TRACE", (folder / "trace").string()},
                                        {"BRISEL_BOARD_FAULTS", fault},
                                        {"LD_LIBRARY_PATH", BRISEL_BUILD_DIR},
                                        {"LD_PRELOAD", "libbrisel-board.so"}}};
    start.words.insert(start.words.end(), arguments.begin(), arguments.end());
    return start;
}

std::vector<std::string> board::trace() const {
    std::istringstream text(contents(fs::path(m_folder) / "trace"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> board::accesses() const {
    std::vector<std::string> found;
    for (const std::string& line : trace()) {
        std::istringstream words(line);
        std::string what, address, word;
        words >> what >> address >> word;
        const bool is_access = (what == "read" || what == "write") && address.starts_with("0x");
        if (is_access || what == "violation") {
            found.push_back(what + " " + address + " " + word);
        }
    }
    return found;
}

std::string board::path(const std::string& board_path) const {
    return (fs::path(m_folder) / "state" / ("root" + board_path)).string();
}

std::optional<std::string> board::file(const std::string& board_path) const {
    const std::string inside = path(board_path);
    if (!fs::exists(inside)) {
        return std::nullopt;
    }
    return contents(inside);
}
