#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tune/knob/knob.hpp"

/**
 * The values of a property that a sweep tries, in their natural order: a lane's by the delay from
 * -63 to +63, a mapped field's by its keys, 0 (off) last, and others by the number.
 *
 * For a set, whose lanes are moved together, they are offsets, written as a lane's delay. The axis
 * then ends where a lane would pass 63, whatever values are asked for: with those of another boot
 * it may be longer or shorter.
 */
class axis {
public:
    /**
     * @param values  "FROM..TO", "FROM..TO/STEP" or "V,V,...", as in a tuning; or empty: all that
     *                the property takes
     * @param present what the parts of the property hold
     * @throw mistake for values that cannot be set, and for a word or a regulator without values
     */
    axis(const knob& target, std::string_view values, const std::vector<std::uint32_t>& present);

    const knob& target() const { return *m_target; }

    /** How many points it has, at least one. */
    std::size_t size() const { return m_listed.empty() ? m_count : m_listed.size(); }

    /** A point's code; of a set the offset's code, as a lane's. */
    std::uint32_t code(std::size_t i) const;

    /** What is set at a point: one code for each part of the property. */
    std::vector<setting> settings_at(std::size_t i) const;

    /** What the property holds before the sweep. */
    const std::vector<std::uint32_t>& present() const { return m_present; }

    /** The point that is nearest to that. */
    std::size_t nearest() const { return m_nearest; }

    /** Whether that is a point. */
    bool has_present() const;

    /** How far a point is from there: in steps of the property, not of the axis. */
    std::int64_t steps_away(std::size_t i) const { return std::abs(position(code(i)) - m_here); }

    /** A point in a log: "d+5", "60". */
    std::string text(std::size_t i) const;

    /** All of it for a reader: "5 points, 0 to 20", "3 points, 60, 40, 120". */
    std::string description() const;

    /** Whether another axis of the property has the same value at a point. */
    bool has_same(std::size_t i, const axis& other) const {
        return is_same(code(i), other.code(i));
    }

    /** The length of the longest text of a point. */
    std::size_t longest_text() const;

    /** The point with such a text; the size where there is none. */
    std::size_t find(std::string_view text) const;

private:
    /** The knob whose values the points have: a set's first lane. */
    const knob& unit() const;
    std::int64_t position(std::uint32_t code) const;

    /** Whether two codes are one value: there are two for no delay. */
    bool is_same(std::uint32_t a, std::uint32_t b) const;

    /** Whether a code comes before another one. */
    bool is_before(std::uint32_t a, std::uint32_t b) const;
    std::uint32_t code_at(std::int64_t position) const;

    /** Of a set the smallest and the largest offset with which no lane passes 63. */
    std::pair<std::int64_t, std::int64_t> possible_offsets() const;
    [[noreturn]] void refuse_offsets() const;
    void take_range(std::int64_t from, std::int64_t to, std::int64_t step);
    void take_all();
    void take_values(std::string_view values);
    void take_list(std::string_view values);

    const knob* m_target;
    std::vector<std::uint32_t> m_present;
    std::vector<std::uint32_t> m_keyed; ///< of a mapped field: its codes in natural order
    std::vector<std::uint32_t> m_listed;
    std::int64_t m_from = 0;
    std::int64_t m_step = 1;
    std::size_t m_count = 0;
    std::int64_t m_here = 0; ///< the position of what the property holds
    std::size_t m_nearest = 0;
};

/** How many points an axis, or two of them together, may have. */
inline constexpr std::size_t most_points = 100000;

/** Whether its values are delays: those of a lane, or the offsets of a set. */
bool is_delay(const knob& k);
