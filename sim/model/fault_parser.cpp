#include <cerrno>
#include <csignal>
#include <cstring>
#include <istream>

#include "model/board_paths.hpp"
#include "model/ddr_phy.hpp"
#include "model/device_layout.hpp"
#include "model/errno_names.hpp"
#include "model/failing_call.hpp"
#include "model/fault_list.hpp"
#include "model/text.hpp"

namespace {

/** The number of a signal such as "SIGTERM"; empty for a name that is none. */
std::optional<int> signal_value(std::string_view name) {
    for (int value = 1; value < NSIG; ++value) {
        const char* const candidate = sigabbrev_np(value);
        if (candidate != nullptr && name == std::string("SIG").append(candidate)) {
            return value;
        }
    }
    return std::nullopt;
}

} // namespace

/** Takes the words of one line, from left to right. */
class fault_list::line_parser {
public:
    line_parser(std::string_view line, const std::string& where, const register_table& registers)
        : m_rest(line), m_where(where), m_registers(registers) {}

    std::string_view kind() { return take_word(m_rest); }

    /** Bits of a word: those that a mask names. */
    word_fault masked_bits() {
        const register_bits bits = place();
        const std::uint32_t mask = number_of(bits, "mask");
        return {bits.place, mask, 0};
    }

    /** Bits of a word, and a number in them. */
    word_fault held_bits() {
        const register_bits bits = place();
        const std::uint32_t word = number_of(bits, "word");
        return {bits.place, bits.limit() << bits.low, word};
    }

    path_fault path_error(int usual_error) {
        std::string path = board_path();
        const int error = errno_or(usual_error);
        return {std::move(path), error};
    }

    page_fault page_error(int usual_error) {
        const std::uint32_t address = address_or_property().place.address;
        return {page_of(address), errno_or(usual_error)};
    }

    call_fault failing() {
        call_fault fault = counted_call();
        fault.number = errno_or(default_error(fault.call));
        return fault;
    }

    call_fault signalling() {
        call_fault fault = counted_call();
        const std::string_view name = take_word(m_rest);
        const std::optional<int> signal = signal_value(name);
        fault.number = signal ? *signal : throw input_error(m_where, not_a_number(name, "signal"));
        end();
        return fault;
    }

    content_fault file_content() {
        std::string path = board_path();
        return {std::move(path), std::string(trimmed(m_rest))};
    }

    [[noreturn]] void refuse(const std::string& message) const {
        throw input_error(m_where, message);
    }

private:
    std::uint32_t number(std::string_view word, const char* what) const {
        const std::optional<std::uint32_t> value = parse_number(word);
        if (!value) {
            refuse(not_a_number(word, what));
        }
        return *value;
    }

    call_fault counted_call() {
        const std::string_view name = take_word(m_rest);
        const std::optional<failing_call> call = find_failing_call(name);
        if (!call) {
            refuse(quoted(name) + " is no call that can fail");
        }
        std::string_view which = take_word(m_rest);
        const bool and_all_later = which.ends_with('+');
        which.remove_suffix(and_all_later ? 1 : 0);
        const std::uint32_t first = number(which, "number");
        if (first == 0) {
            refuse("calls are counted from 1");
        }
        return {*call, first, and_all_later, 0};
    }

    register_bits address_or_property() {
        const std::string_view word = take_word(m_rest);
        if (word.find("::") != std::string_view::npos) {
            const auto bits = m_registers.find_property(std::string(word));
            return bits ? *bits : throw input_error(m_where, "no such property: " + quoted(word));
        }
        const std::size_t slash = word.find('/');
        const std::uint32_t address = number(word.substr(0, slash), "address");
        if (slash == std::string_view::npos) {
            return {{address, std::nullopt}};
        }
        if (!find_banked_register(address)) {
            refuse("the register at " + hex_text(address) + " is not banked");
        }
        return {{address, number(word.substr(slash + 1), "selector")}};
    }

    register_bits place() {
        const register_bits bits = address_or_property();
        if (!m_registers.has_register(bits.place.address)) {
            refuse("no register lies at " + hex_text(bits.place.address));
        }
        return bits;
    }

    /** A number for some bits, shifted to where they are; the last word of the line. */
    std::uint32_t number_of(const register_bits& bits, const char* what) {
        const std::string_view word = take_word(m_rest);
        const std::uint32_t value = number(word, what);
        if (value > bits.limit()) {
            refuse(quoted(word) + " has more bits than the field");
        }
        end();
        return value << bits.low;
    }

    std::string board_path() {
        const std::string_view path = take_word(m_rest);
        if (!is_board_path(path)) {
            refuse(quoted(path) + " is no path of the board");
        }
        return std::string(path);
    }

    int errno_or(int usual_error) {
        const std::string_view name = take_word(m_rest);
        end();
        if (name.empty()) {
            return usual_error;
        }
        const std::optional<int> error = errno_value(name);
        if (!error) {
            refuse(quoted(name) + " is no errno name");
        }
        return *error;
    }

    void end() const {
        if (!trimmed(m_rest).empty()) {
            refuse(quoted(trimmed(m_rest)) + " is too much");
        }
    }

    std::string_view m_rest;
    const std::string& m_where;
    const register_table& m_registers;
};

void fault_list::add_all(std::istream& text, const std::string& file,
                         const register_table& registers) {
    std::string line;
    for (std::size_t number = 1; std::getline(text, line); ++number) {
        add(line, file + ":" + std::to_string(number), registers);
    }
}

void fault_list::add(std::string_view line, const std::string& where,
                     const register_table& registers) {
    line_parser parser(line, where, registers);
    const std::string_view kind = parser.kind();
    if (kind.empty() || kind.front() == '#') {
        return;
    }
    if (kind == "stuck") {
        m_stuck.push_back(parser.masked_bits());
    } else if (kind == "reads-as") {
        m_reads_as.push_back(parser.held_bits());
    } else if (kind == "no-open") {
        m_no_open.push_back(parser.path_error(ENOENT));
    } else if (kind == "no-write") {
        m_no_write.push_back(parser.path_error(EACCES));
    } else if (kind == "no-map") {
        m_no_map.push_back(parser.page_error(EPERM));
    } else if (kind == "no-lock") {
        m_no_lock.push_back(parser.path_error(ENOLCK));
    } else if (kind == "content") {
        m_content.push_back(parser.file_content());
    } else if (kind == "fail") {
        m_calls.push_back(parser.failing());
    } else if (kind == "signal") {
        m_signals.push_back(parser.signalling());
    } else {
        parser.refuse(quoted(kind) + " is no kind of fault");
    }
}
