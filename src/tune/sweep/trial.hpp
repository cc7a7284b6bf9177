#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

/** How a run of a test ended. */
enum class run_end { passed, failed, timed_out, interrupted, not_executed };

/**
 * Looks for a command as `trial` will, so that a mistake in its name is found before all else.
 * @throw mistake when there is none, or none that may be executed
 */
void check_command(const std::string& name);

/**
 * One run of a test: a process that is there already, and begins the test when it is told to. So
 * nothing has to be made, and no file written, while a value is tried.
 *
 * It has a process group of its own, ends with this process, leaves no core, reads nothing, and is
 * what the kernel ends first for want of memory.
 */
class trial {
public:
    /**
     * @param words       the command and its arguments, found as the shell finds it
     * @param environment variables beside this process's own
     * @throw mistake when there can be no process
     */
    trial(const std::vector<std::string>& words,
          const std::vector<std::pair<std::string, std::string>>& environment);
    trial(const trial&) = delete;
    trial& operator=(const trial&) = delete;

    /** Ends the process if it has not begun. */
    ~trial();

    /**
     * Runs the test to its end, or to that of its time, and then ends what is left of its group: by
     * SIGTERM and, a second later, SIGKILL. A process that does not go even then is left.
     * @return "not executed" with the reason as its output, when there is no such command
     */
    run_end run(std::optional<double> seconds);

    static constexpr std::size_t most_output = 4096;

    /** The last of what it wrote to either standard stream, at most so many bytes. */
    const std::string& output() const { return m_output; }

private:
    void end_group();

    /** Sends the group a signal, and waits a second for its end. @return whether it has ended */
    bool send_to_group(int number);
    void read_output();

    const std::string m_name;
    pid_t m_process = -1;
    bool m_has_ended = false; ///< the process itself, if not its group
    int m_control = -1;       ///< to tell it to begin; and from it, why it could not
    int m_pipe = -1;          ///< what it writes
    std::string m_output;
};
