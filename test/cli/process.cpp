#include "cli/process.hpp"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr unsigned int time_limit = 120; // seconds

int checked(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return result;
}

void put_stream(int wanted, int stream) {
    if (wanted < 0) {
        close(stream);
    } else {
        dup2(wanted, stream);
    }
}

} // namespace

descriptor::descriptor(const std::string& path, int flags)
    : descriptor(open(path.c_str(), flags | O_CLOEXEC, 0600)) {}

descriptor::descriptor(int opened) : m_number(checked(opened, "descriptor")) {}

descriptor::descriptor(descriptor&& other) noexcept : m_number(std::exchange(other.m_number, -1)) {}

descriptor::~descriptor() {
    close();
}

void descriptor::close() {
    if (m_number >= 0) {
        ::close(std::exchange(m_number, -1));
    }
}

pid_t start(const program_start& program) {
    std::vector<char*> argv;
    for (const std::string& word : program.words) {
        argv.push_back(const_cast<char*>(word.c_str())); // exec takes what it never changes
    }
    argv.push_back(nullptr);
    const pid_t child = checked(fork(), "fork");
    if (child == 0) {
        if (program.leads_group) {
            setpgid(0, 0);
        }
        for (const int number : {SIGINT, SIGQUIT, SIGTERM}) {
            std::signal(number, SIG_DFL);
        }
        std::signal(SIGHUP, program.ignores_hangup ? SIG_IGN : SIG_DFL);
        alarm(time_limit);
        const rlimit none{};
        setrlimit(RLIMIT_CORE, &none);
        for (const auto& [name, value] : program.environment) {
            setenv(name.c_str(), value.c_str(), 1);
        }
        put_stream(program.in, STDIN_FILENO);
        put_stream(program.out, STDOUT_FILENO);
        put_stream(program.err, STDERR_FILENO);
        execv(argv[0], argv.data());
        _exit(127);
    }
    return child;
}

int wait_for(pid_t process) {
    int status = 0;
    checked(waitpid(process, &status, 0), "waitpid");
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}
