#pragma once

#include <ranges>
#include <string>
#include <vector>

#include "property/property.hpp"

/**
 * An ordered list of other properties, shown and set as one value: "{10,12,9}".
 *
 * The set holds only the members' names, and looks them up at every use.
 */
class property_set : public property {
public:
    /**
     * @param members registry names, in the order of the values; duplicates are kept. Neither
     * this set's own name nor one that leads back to it: the look-up would never end.
     */
    property_set(const std::string& property_name, std::vector<std::string> members);

    /** The same with the names in a container of any other kind. */
    template <std::ranges::input_range Names>
    property_set(const std::string& property_name, const Names& members)
        : property_set(property_name, std::vector<std::string>(std::ranges::begin(members),
                                                               std::ranges::end(members))) {}

    /**
     * Sets the members, in order. A braced list holds one value per member, not trimmed; any
     * other text goes to every member as it is. The first member that is missing or refuses its
     * value ends this: "set failed" on standard error, and members before it keep their new
     * values. A braced list of the wrong length is reported, and no member is touched.
     * @throw what a member's `set` throws; members already written stay written
     */
    bool set(const std::string& value) override;

    /** False when a member is missing or cannot be read; the text is then left alone. */
    bool get(std::string& value) override;

    const std::vector<std::string> m_members;
};
