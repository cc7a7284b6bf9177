#pragma once

#include <stdexcept>
#include <string>
#include <utility>

#include "checker/invariant_checker.hpp"
#include "property/property.hpp"

/** How an action that reports success as a bool ends. Any other exception leaves the function. */
template <class Action>
outcome outcome_of(const Action& action) {
    try {
        return action() ? outcome::accepted : outcome::refused;
    } catch (const std::out_of_range&) {
        return outcome::out_of_range;
    } catch (const std::invalid_argument&) {
        return outcome::invalid_argument;
    }
}

/** A property whose every use goes by the checker. */
class checked_property {
public:
    /** Owns neither the property nor the checker. */
    checked_property(property& p, property_target target, invariant_checker& checker)
        : m_property(p), m_target(std::move(target)), m_checker(checker) {}

    /**
     * Sets the property and reads it before and after. A step of a plain field that stayed within
     * the limits is undone and done again, to see that it leads back.
     */
    void set(const std::string& text);

private:
    /** What the property shows, or a text that none does. */
    std::string shown();
    /** True when the text was accepted without a warning. */
    bool accepts(const std::string& text);
    bool is_plain_step(const std::string& text) const;

    property& m_property;
    const property_target m_target;
    invariant_checker& m_checker;
};
