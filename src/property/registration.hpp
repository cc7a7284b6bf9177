#pragma once

#include <map>
#include <string>

#include "property/property.hpp"
#include "property/property_group.hpp"

/**
 * A run of properties on their way into the registry and into one group.
 *
 * Each is looked for right behind the one before. Names that ascend without another name between
 * them, as those of a register's fields do, thus take their places without a search; that is most
 * of the cost of registering. Names in any other order are registered all the same.
 */
class registration {
public:
    /** @param group not null; it and the registry lose no member while the object lives */
    explicit registration(property_group* group);

    /**
     * Registers a property under its own name and adds it to the group.
     * @return the property, or null when the name is taken: then nothing has changed and the
     *         caller still owns the property; likewise when it throws
     */
    property* add(property* p);

private:
    using place = std::map<std::string, property*>::iterator;

    /**
     * The place behind a new entry. Mostly that is where it was expected to be, which is cheaper
     * to see than to look for. There is something before `expected`: the new entry, or an
     * earlier one.
     */
    static place behind(place entry, place expected);

    property_group& m_group;
    /** The entries behind the ones made last. */
    place m_in_registry;
    place m_in_group;
};
