#pragma once

#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

/** A descriptor of this process that is closed with the object; not passed on to a program. */
class descriptor {
public:
    /** Opens a file, created with mode 0600 where the flags say so. Throws std::system_error. */
    descriptor(const std::string& path, int flags);

    /** Takes over what a call gave back. Throws std::system_error if that is an error. */
    explicit descriptor(int opened);

    descriptor(descriptor&& other) noexcept;
    ~descriptor();

    /** Closes it now. */
    void close();

    operator int() const { return m_number; }

private:
    int m_number;
};

/** What a program of a test is started with. */
struct program_start {
    /** The path of the program, then its arguments. */
    std::vector<std::string> words;

    /** Variables that it gets besides those of this process. */
    std::vector<std::pair<std::string, std::string>> environment = {};

    /** Descriptors of this process for its standard streams; what is -1 is closed to it. */
    int in = -1;
    int out = -1;
    int err = -1;

    /** It begins a process group of its own, as it does when a shell in a terminal starts it. */
    bool leads_group = false;

    /** SIGHUP is ignored, as nohup wants it. Signals that this process ignores are not otherwise.
     */
    bool ignores_hangup = false;
};

/**
 * Starts a program in a child process; `wait_for` has to follow. One that hangs is ended by SIGALRM
 * after two minutes. It leaves no core file.
 */
pid_t start(const program_start& program);

/** Waits until the process ends: its exit status, or minus the signal that ended it. */
int wait_for(pid_t process);
