#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "model/board_model.hpp"
#include "model/board_paths.hpp"
#include "model/failing_call.hpp"
#include "model/fault_list.hpp"
#include "preload/open_files.hpp"
#include "preload/shared_counts.hpp"
#include "preload/size_log.hpp"
#include "preload/trace_log.hpp"

/**
 * The board that this process works on: its folder, its faults, its trace, and what is open on it.
 *
 * The folder holds `registers`, `faults`, and below `root` the files that the board shows in place
 * of the machine's.
 */
class board_session {
public:
    /**
     * Reads the registers once, to see that they make sense, and the faults: those of the folder,
     * then those of `more_faults` (one per line). Throws input_error if any of that does not.
     */
    board_session(std::string folder, const std::string& trace_target,
                  const std::string& more_faults);

    /** Takes the registers as they stand in the folder now. */
    void load_model();

    /** Writes the registers back, in one step: a reader sees the old table or the new one. */
    void save_model();

    /** What the registers held when the device node was last opened, and what came after. */
    board_model& model() { return *m_model; }

    /**
     * Counts a call that the program, or a process that it forks, makes, and sends the signal that
     * a fault has come with it. True if a fault has this one fail: errno is then set, and the trace
     * says that `event` failed.
     */
    bool next_call_fails(failing_call call, std::string_view event) noexcept;

    /**
     * Ends the process: it used the board as no program should. Says so on standard error, and as
     * the last line of the trace, which then begins with "violation".
     */
    [[noreturn]] void violation(const std::string& message) const noexcept;

    /** Where the board keeps what the program calls `path`. */
    std::string kept_at(std::string_view path) const;

    /** True for the board's own folder and what lies in it. */
    bool is_in_folder(std::string_view path) const { return is_at_or_below(path, m_folder); }

    const size_log& sizes() const { return m_sizes; }
    const fault_list& faults() const { return m_faults; }
    const trace_log& trace() const { return m_trace; }
    open_files& files() { return m_files; }
    const open_files& files() const { return m_files; }

private:
    std::string m_folder;
    trace_log m_trace;
    size_log m_sizes;
    fault_list m_faults;
    open_files m_files;
    std::optional<board_model> m_model;
    std::string m_text;    ///< of the registers, as last read or written
    shared_counts m_calls; ///< made so far, by this process and those that it forks
};

/**
 * The session of this process, or null before it begins and after it ends: calls made then are not
 * the program's.
 */
board_session* current_session() noexcept;
