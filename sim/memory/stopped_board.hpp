#pragma once

#include <string>
#include <vector>

#include <sys/types.h>

/**
 * The processes on a board, stopped for good: none of them runs once this is built, and its end
 * ends them. A process is on the board if its environment names the folder and the board's library
 * is loaded into it, or soon will be. This process is left out, and so is what the user may not
 * look into.
 */
class stopped_board {
public:
    /** `folder` is the path of the board's folder. */
    explicit stopped_board(const std::string& folder);
    ~stopped_board();
    stopped_board(const stopped_board&) = delete;
    stopped_board& operator=(const stopped_board&) = delete;

    const std::vector<pid_t>& processes() const { return m_processes; }

private:
    bool stop_more(const std::string& folder);

    std::vector<pid_t> m_processes;
};
