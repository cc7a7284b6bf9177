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

/** What to run: the file that $BRISEL_PROGRAM names, or else the one in the build folder. */
std::string program() {
    const char* const file = std::getenv("BRISEL_PROGRAM");
    return file == nullptr ? "brisel" : file;
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
    sim::register_table table = sim::register_table::parse(text, registers.string());
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
    return {contents(folder / "out"), contents(folder / "err"), status};
}

program_start board::launch(const std::vector<std::string>& arguments) const {
    const fs::path folder = m_folder;
    program_start program{.words = {BOARD_LAUNCHER, "-b", (folder / "state").string(), "-T",
                                    (folder / "trace").string(), ::program()},
                          .environment = {{"BRISEL_BUILD", BRISEL_BUILD_DIR}}};
    program.words.insert(program.words.end(), arguments.begin(), arguments.end());
    return program;
}

program_start board::launch_bare(const std::vector<std::string>& arguments,
                                 const std::string& fault) const {
    const fs::path folder = m_folder;
    program_start program{.words = {BRISEL_BUILD_DIR "/brisel"},
                          .environment = {{"BRISEL_BOARD", (folder / "state").string()},
                                          {"BRISEL_BOARD_TRACE", (folder / "trace").string()},
                                          {"BRISEL_BOARD_FAULTS", fault},
                                          {"LD_LIBRARY_PATH", BRISEL_BUILD_DIR},
                                          {"LD_PRELOAD", "libbrisel-board.so"}}};
    program.words.insert(program.words.end(), arguments.begin(), arguments.end());
    return program;
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
