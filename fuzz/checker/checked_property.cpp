#include "checker/checked_property.hpp"

#include "support/fake_streams.hpp"

namespace {

/** The same step in the other direction. */
std::string opposite(std::string step) {
    step.front() = step.front() == '+' ? '-' : '+';
    return step;
}

} // namespace

void checked_property::set(const std::string& text) {
    const std::string before = shown();
    const bool in_limits = accepts(text);
    const std::string after = shown();
    if (!in_limits || !is_plain_step(text)) {
        return;
    }
    accepts(opposite(text));
    m_checker.check_round_trip(before, shown(), text);
    accepts(text);
    m_checker.check_round_trip(after, shown(), opposite(text));
}

std::string checked_property::shown() {
    std::string text;
    const outcome result = outcome_of([&] { return m_property.get(text); });
    m_checker.check_get(m_target, result, text, property::m_number_mode == 1);
    return result == outcome::accepted ? text : "(none)";
}

bool checked_property::accepts(const std::string& text) {
    fake_streams::reset();
    const outcome result = outcome_of([&] { return m_property.set(text); });
    m_checker.check_set(m_target, result, text);
    return result == outcome::accepted && fake_streams::writes().empty();
}

bool checked_property::is_plain_step(const std::string& text) const {
    return m_target.what == property_target::kind::field &&
           m_target.fields.front().what == field_place::kind::plain &&
           (text.starts_with('+') || text.starts_with('-'));
}
