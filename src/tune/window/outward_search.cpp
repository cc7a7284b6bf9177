#include "tune/window/outward_search.hpp"

outward_search::outward_search(std::size_t size, std::size_t start, std::size_t stop)
    : m_start(start), m_stop(stop), m_sides{{size - 1 - start}, {start}} {}

std::optional<std::size_t> outward_search::next() const {
    if (!m_begun) {
        return m_start;
    }
    const side& s = m_sides[turn()];
    if (!is_open(s)) {
        return std::nullopt;
    }
    return &s == m_sides ? m_start + s.steps : m_start - s.steps;
}

void outward_search::note(verdict kind) {
    m_passed = m_passed || kind == verdict::pass;
    if (!m_begun) {
        m_begun = true;
        return;
    }
    side& s = m_sides[turn()];
    m_turn = 1 - turn();
    ++s.steps;
    s.misses = kind == verdict::pass || !m_passed ? 0 : s.misses + 1;
    s.ended = m_stop != 0 && (kind == verdict::hang || s.misses == m_stop);
}

bool outward_search::is_open(const side& s) const {
    constexpr std::size_t most_steps_without_a_pass = 10;
    return !s.ended && s.steps <= s.room &&
           (m_passed || m_stop == 0 || s.steps <= most_steps_without_a_pass);
}
