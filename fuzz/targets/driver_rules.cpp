#include "targets/driver_rules.hpp"

#include <cstddef>
#include <string>
#include <string_view>

#include "checker/known_properties.hpp"
#include "property/property.hpp"

namespace fuzz {
namespace {

constexpr std::string_view set_line = "BRISEL: set ";
constexpr std::string_view get_line = "BRISEL: get ";
constexpr std::string_view sign = " := ";

class run_rules {
public:
    run_rules(const driver_run& run, invariant_checker& checker) : m_run(run), m_checker(checker) {}

    void check(bool can_lock) {
        const std::string said = m_run.last_message();
        if (!m_run.option_argument.empty()) {
            check_raw_read();
        } else if (m_run.is_cut_short()) {
            check_exception();
        } else if (said.starts_with(set_line)) {
            check_set(said.substr(set_line.size()));
        } else if (said.starts_with(get_line)) {
            check_get(said.substr(get_line.size()));
        } else {
            m_checker.check_idle();
            expect(m_run.status <= 0 && m_run.status >= -3, "status of no action");
        }
        expect((m_run.status == -1) != can_lock, "status of the lock");
        expect(m_run.is_cut_short() || !m_run.holds_lock, "lock held at the end");
    }

private:
    bool is_done() const { return m_run.result == outcome::accepted; }

    void expect(bool holds, const std::string& violation) {
        if (!holds) {
            m_checker.report(violation + ": " + std::to_string(m_run.status) + ", " +
                             m_run.last_message());
        }
    }

    /** `line` is a name, " := ", a value, and " failed." when it was refused. */
    void check_set(const std::string& line) {
        const std::string failed = is_done() ? "" : " failed.";
        expect(line.ends_with(failed), "refused, and not said so");
        const std::size_t end = line.size() - failed.size();
        const std::size_t at = line.find(sign);
        const std::size_t value = at + sign.size();
        m_checker.check_set(known_properties().at(line.substr(0, at)), m_run.result,
                            line.substr(value, end - value));
        expect(m_run.status == (is_done() ? 0 : -11), "status of a write");
        expect(m_run.out.empty(), "a write that shows something");
    }

    /** `line` is a name, then " := " and a value, or "failed." */
    void check_get(const std::string& line) {
        const std::size_t at = is_done() ? line.find(sign) : line.rfind("failed.");
        const std::string value = is_done() ? line.substr(at + sign.size()) : "";
        check_shown(line.substr(0, at), m_run.result, value);
        expect(m_run.status == (is_done() ? 0 : -10), "status of a read");
        expect(m_run.out == value + "\n", "what was shown is not what was reported");
    }

    void check_raw_read() {
        expect(m_run.status == 0, "status of a raw read");
        const bool shown = is_done() && m_run.err.empty();
        if (!known_properties().contains(m_run.option_argument)) {
            m_checker.check_idle();
            expect(!shown, "shown and not known");
            return;
        }
        expect(!shown || m_run.out.ends_with('\n'), "a line without an end");
        check_shown(m_run.option_argument, is_done() && !shown ? outcome::refused : m_run.result,
                    m_run.out.substr(0, m_run.out.find('\n')));
    }

    void check_exception() {
        if (m_run.has_value) {
            m_checker.check_set(known_properties().at(m_run.operand), m_run.result, "");
        } else {
            check_shown(m_run.operand, m_run.result, "");
        }
    }

    void check_shown(const std::string& name, outcome result, const std::string& value) {
        m_checker.check_get(known_properties().at(name), result, value,
                            property::m_number_mode == 1);
    }

    const driver_run& m_run;
    invariant_checker& m_checker;
};

} // namespace

void check_run(const driver_run& run, bool can_lock, invariant_checker& checker) {
    run_rules(run, checker).check(can_lock);
}

} // namespace fuzz
