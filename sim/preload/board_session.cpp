#include "preload/board_session.hpp"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <utility>

#include <unistd.h>

#include "model/text.hpp"
#include "preload/report.hpp"

namespace {

board_session* session = nullptr;

std::string setting(const char* name) {
    const char* const value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::ifstream open_text_file(const std::string& file) {
    std::ifstream text(file);
    if (!text) {
        throw input_error(file, std::strerror(errno));
    }
    return text;
}

// Before the program's own static objects are built: some of them read a file of the board.
[[gnu::constructor]] void begin_session() {
    const std::string folder = setting("BRISEL_BOARD");
    if (folder.empty()) {
        refuse("BRISEL_BOARD names no folder: start programs with sim/board");
    }
    try {
        session = new board_session(folder, setting("BRISEL_BOARD_TRACE"),
                                    setting("BRISEL_BOARD_FAULTS"));
    } catch (const std::exception& error) {
        refuse(error.what());
    }
}

[[gnu::destructor]] void end_session() {
    delete std::exchange(session, nullptr);
}

} // namespace

board_session::board_session(std::string folder, const std::string& trace_target,
                             const std::string& more_faults)
    : m_folder(std::move(folder)), m_trace(trace_target), m_sizes(m_folder) {
    const std::string registers = m_folder + "/registers";
    std::ifstream text = open_text_file(registers);
    const register_table table = register_table::parse(text, registers);
    const std::string file = m_folder + "/faults";
    std::ifstream faults = open_text_file(file);
    m_faults.add_all(faults, file, table);
    std::istringstream more(more_faults);
    m_faults.add_all(more, "-f", table);
}

void board_session::load_model() {
    const std::string file = m_folder + "/registers";
    std::ostringstream contents;
    contents << open_text_file(file).rdbuf();
    if (m_model && contents.view() == m_text) {
        return; // nobody else has written: the model holds that already
    }
    std::istringstream text(contents.str());
    m_model.emplace(register_table::parse(text, file), m_faults);
    m_text = contents.str();
}

void board_session::save_model() {
    std::ostringstream contents;
    m_model->registers().print(contents);
    m_text = contents.str();
    const std::string file = m_folder + "/registers";
    const std::string new_file = file + "." + std::to_string(getpid());
    std::ofstream text(new_file);
    text << m_text;
    text.close();
    if (!text || std::rename(new_file.c_str(), file.c_str()) != 0) {
        const std::string reason = std::strerror(errno);
        std::remove(new_file.c_str());
        refuse("cannot write " + file + ": " + reason);
    }
}

bool board_session::next_call_fails(failing_call call, std::string_view event) noexcept {
    const std::uint32_t number = m_calls.next(call);
    if (const std::optional<int> signal = m_faults.call_signal(call, number)) {
        m_trace.line(std::string("signal SIG").append(sigabbrev_np(*signal)));
        kill(0, *signal);
    }
    const std::optional<int> error = m_faults.call_error(call, number);
    if (!error) {
        return false;
    }
    m_trace.line(std::string(event).append(" failed: ").append(std::strerror(*error)));
    errno = *error;
    return true;
}

void board_session::violation(const std::string& message) const noexcept {
    const std::string text = "violation " + message;
    m_trace.line(text);
    say(text);
    std::abort();
}

std::string board_session::kept_at(std::string_view path) const {
    return m_folder + "/root" + std::string(path);
}

board_session* current_session() noexcept {
    return session;
}
