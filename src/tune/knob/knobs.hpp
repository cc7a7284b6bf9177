#pragma once

#include <deque>
#include <map>
#include <string>
#include <vector>

#include "tune/knob/knob.hpp"

/** All registered properties as knobs, in the order of `brisel -l`. */
class knobs {
public:
    knobs();
    knobs(const knobs&) = delete;
    knobs& operator=(const knobs&) = delete;

    const std::deque<knob>& all() const { return m_all; }

    /** The knob of exactly this name. @throw mistake that offers the nearest names */
    const knob& named(const std::string& name) const;

    /** All that is not one of a set's lanes. */
    std::vector<const knob*> all_but_lanes_of_sets() const;

    /**
     * The knobs that names stand for, in the order of `brisel -l`, none twice. A name is first a
     * property's, then a group's, then a pattern over the properties' names, as the shell has it.
     * Where a set fits, its lanes are left out.
     * @throw mistake for a name that fits nothing; it offers the nearest ones
     */
    std::vector<const knob*> chosen(const std::vector<std::string>& names) const;

private:
    [[noreturn]] void fail(const std::string& what, const std::string& name) const;

    std::deque<knob> m_all;
    std::map<std::string, knob*> m_by_name;
};

/** The knobs with codes among these: sets are replaced by their lanes. */
std::vector<const knob*> parts_of(const std::vector<const knob*>& chosen);
