#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cli/process.hpp"
#include "model/register_table.hpp"

/** What a board has that the power-on state has not, told in one readable line. */
class board_setup {
public:
    /** The word at a physical address. */
    board_setup& word(std::uint32_t address, std::uint32_t word);

    /** A word behind a data register of a DDR PHY, at one selector. */
    board_setup& word(std::uint32_t address, std::uint32_t selector, std::uint32_t word);

    /** The contents of a file of the board, by its absolute path. */
    board_setup& file(std::string path, std::string text);

    /** A line of the board's list of faults. */
    board_setup& fault(std::string line);

private:
    friend class board;

    std::vector<std::pair<register_key, std::uint32_t>> m_words;
    std::vector<std::pair<std::string, std::string>> m_files;
    std::vector<std::string> m_faults;
};

/** How a process ended and what it said. */
struct run_result {
    std::string out;
    std::string err;
    int status = 0; ///< exit status, or minus the signal that ended the process
};

/** The status of a process that ended abnormally, through abort(). */
extern const int aborted;

/** A simulated board in a folder of its own, removed with the object. */
class board {
public:
    explicit board(const board_setup& setup = {});
    ~board();
    board(const board&) = delete;
    board& operator=(const board&) = delete;

    /**
     * Runs `brisel` with these arguments through the launcher. Standard input is empty. The
     * environment may name another build, and an emulator for it, as it may to the launcher.
     */
    run_result run(const std::vector<std::string>& arguments) const;

    /** The same for what one of the next two made. */
    run_result capture(program_start program) const;

    /** How a program is started with these arguments through the launcher; no stream is open. */
    program_start launch(const std::vector<std::string>& arguments,
                         const std::string& program = "brisel") const;

    /**
     * The same with one more fault for this run, and without the launcher, which takes most of the
     * time of a run, unless an emulator is needed.
     */
    program_start launch_bare(const std::vector<std::string>& arguments, const std::string& fault,
                              const std::string& program = "brisel") const;

    /** Every line of the trace so far. */
    std::vector<std::string> trace() const;

    /** The register accesses of the trace, without the names: "read 0x18428120 0x00880084". */
    std::vector<std::string> accesses() const;

    /** Where a file of the board lies, by its absolute path on the board. */
    std::string path(const std::string& board_path) const;

    /** The contents of a file of the board, or empty when there is none. */
    std::optional<std::string> file(const std::string& board_path) const;

private:
    std::string m_folder;
};
