#include "tune/sweep/trial.hpp"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tune/sweep/precautions.hpp"
#include "tune/sweep/user_signals.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

using std::chrono::steady_clock;

// What a process says when it waits, and what it is told then.
constexpr char ready_report = 'r';
constexpr char begin_order = 'b';
constexpr char leave_order = 'l';

constexpr double forever = 1e9; // seconds
constexpr double grace = 1;     // between SIGTERM and SIGKILL
constexpr std::size_t buffer_size = 1024;

double seconds_until(steady_clock::time_point end) {
    const double left = std::chrono::duration<double>(end - steady_clock::now()).count();
    return std::max(left, 0.0);
}

steady_clock::time_point after(double seconds) {
    return steady_clock::now() + std::chrono::duration_cast<steady_clock::duration>(
                                     std::chrono::duration<double>(seconds));
}

/** What the process does until it is told to begin, and then. */
[[noreturn]] void be_test(const std::vector<std::string>& words,
                          const std::vector<std::pair<std::string, std::string>>& environment,
                          int control, int output) {
    setpgid(0, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    set_oom_score("0");
    dup2(open("/dev/null", O_RDONLY | O_CLOEXEC), STDIN_FILENO);
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGCHLD, SIGPIPE}) {
        std::signal(number, SIG_DFL);
    }
    sigset_t nothing;
    sigemptyset(&nothing);
    sigprocmask(SIG_SETMASK, &nothing, nullptr);
    for (const auto& [name, value] : environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (const std::string& word : words) {
        argv.push_back(const_cast<char*>(word.c_str()));
    }
    argv.push_back(nullptr);
    static_cast<void>(!write(control, &ready_report, 1));
    char order = 0;
    static_cast<void>(!read(control, &order, 1)); // nothing when this process's parent is gone
    if (order == begin_order) {
        execvp(argv.front(), argv.data());
        const int error = errno;
        static_cast<void>(!write(control, &error, sizeof error));
    }
    std::_Exit(127);
}

/** Whether there is such a file that may be executed; if not, errno says why. */
bool is_executable(const std::string& file) {
    struct stat status {};
    if (stat(file.c_str(), &status) != 0) {
        return false;
    }
    errno = EACCES;
    return S_ISREG(status.st_mode) && access(file.c_str(), X_OK) == 0;
}

} // namespace

void check_command(const std::string& name) {
    if (name.find('/') != std::string::npos) {
        if (!is_executable(name)) {
            throw mistake("cannot execute " + name + ": " + std::strerror(errno));
        }
        return;
    }
    const char* const path = std::getenv("PATH");
    for (std::string_view rest = path == nullptr ? "/bin:/usr/bin" : path;;) {
        const std::size_t size = std::min(rest.find(':'), rest.size());
        std::string file(rest.substr(0, size));
        if (size != 0) { // or else it is the present folder
            file += '/';
        }
        file += name;
        if (is_executable(file)) {
            return;
        }
        if (size == rest.size()) {
            throw mistake("cannot execute " + in_quotes(name) + ": it is in no folder of PATH");
        }
        rest.remove_prefix(size + 1);
    }
}

trial::trial(const std::vector<std::string>& words,
             const std::vector<std::pair<std::string, std::string>>& environment)
    : m_name(words.front()) {
    int control[2] = {-1, -1};
    int output[2] = {-1, -1};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, control) == 0 &&
        pipe2(output, O_CLOEXEC | O_NONBLOCK) == 0) {
        m_process = fork();
    }
    const int error = errno;
    if (m_process == 0) {
        close(control[0]); // so that it sees when nobody holds this end any more
        close(output[0]);
        fcntl(output[1], F_SETFL, 0); // only the reader is not to wait
        be_test(words, environment, control[1], output[1]);
    }
    close(control[1]);
    close(output[1]);
    m_control = control[0];
    m_pipe = output[0];
    if (m_process == -1) {
        close(m_control);
        close(m_pipe);
        throw mistake(std::string("no process for a test: ") + std::strerror(error));
    }
    setpgid(m_process, m_process);               // whoever comes first
    m_output.reserve(most_output + buffer_size); // memory is not to end while a value is tried
    char report = 0;
    static_cast<void>(!read(m_control, &report, 1)); // nothing more is done until it begins
}

trial::~trial() {
    if (m_process != -1) {
        static_cast<void>(!write(m_control, &leave_order, 1));
        waitpid(m_process, nullptr, 0);
    }
    close(m_control);
    close(m_pipe);
}

run_end trial::run(std::optional<double> seconds) {
    if (user_signals::noted() != 0) {
        return run_end::interrupted;
    }
    const steady_clock::time_point end = after(seconds.value_or(forever));
    static_cast<void>(!write(m_control, &begin_order, 1));
    run_end result = run_end::timed_out;
    siginfo_t info{};
    for (;;) {
        read_output();
        info.si_pid = 0;
        waitid(P_PID, static_cast<id_t>(m_process), &info, WEXITED | WNOHANG | WNOWAIT);
        if (info.si_pid != 0) {
            const bool passed = info.si_code == CLD_EXITED && info.si_status == 0;
            result = passed ? run_end::passed : run_end::failed;
            break;
        }
        if (user_signals::noted() != 0) {
            result = run_end::interrupted;
            break;
        }
        if (steady_clock::now() >= end) {
            break;
        }
        user_signals::wait(m_pipe, seconds_until(end));
    }
    end_group();
    read_output();
    int error = 0;
    if (recv(m_control, &error, sizeof error, MSG_DONTWAIT) == sizeof error) {
        m_output = "cannot execute " + m_name + ": " + std::strerror(error);
        result = run_end::not_executed;
    }
    return result;
}

void trial::read_output() {
    char buffer[buffer_size];
    ssize_t size = 0;
    while (m_pipe != -1 && (size = read(m_pipe, buffer, sizeof buffer)) > 0) {
        m_output.append(buffer, static_cast<std::size_t>(size));
        m_output.erase(0, m_output.size() - std::min(m_output.size(), most_output));
    }
    if (m_pipe != -1 && size == 0) { // nobody writes any more: there is nothing to wait for
        close(m_pipe);
        m_pipe = -1;
    }
}

void trial::end_group() {
    if (!send_to_group(SIGTERM)) {
        send_to_group(SIGKILL);
    }
    m_process = -1;
}

bool trial::send_to_group(int number) {
    constexpr double tick = 0.01; // how often to look: the end of a child's child is not told
    kill(-m_process, number);
    const steady_clock::time_point end = after(grace);
    while (steady_clock::now() < end) {
        m_has_ended = m_has_ended || waitpid(m_process, nullptr, WNOHANG) == m_process;
        if (m_has_ended && (number == SIGKILL || kill(-m_process, 0) == -1)) {
            return true;
        }
        read_output();
        user_signals::wait(-1, tick);
    }
    return false;
}
