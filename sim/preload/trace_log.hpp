#pragma once

#include <string>
#include <string_view>

/** The events of a run, in order, one line each. Keeps no descriptor open between two lines. */
class trace_log {
public:
    /**
     * `target` is the path of a file that lines are appended to, "-" for standard error, or empty
     * for no trace. A file that cannot be written ends the process with a message.
     */
    explicit trace_log(std::string target);

    /** Leaves errno as it is. Usable in a signal handler. */
    void line(std::string_view text) const noexcept;

private:
    int open_file() const noexcept;

    std::string m_target;
};
