#pragma once

#include <map>
#include <string>

#include "property/property.hpp"

/**
 * A named collection of properties for listing, and the registry of all groups.
 *
 * A group refers to its members and never owns them. Groups belong to the registry.
 */
class property_group {
public:
    explicit property_group(std::string group_name);
    property_group(const property_group&) = delete;
    property_group& operator=(const property_group&) = delete;

    virtual ~property_group() = default;

    /**
     * Puts a property into this group under its own name, replacing any member of that name.
     * The property registry is not touched.
     * @return the property
     */
    property* add_property(property* p);

    /** The group of that name, created on first use. */
    static property_group* register_property_group(const std::string& name);

    /**
     * The group of that name, or null. An unknown name leaves an entry that holds null.
     * A failure of the look-up itself (no memory for that entry) gives null, too.
     */
    static property_group* get_property_group(const std::string& name);

    /** A copy of the registry; the groups in it are the live ones. */
    static std::map<std::string, property_group*> get_groups();

    /** Deletes every group, but not its members, and forgets them all. */
    static void free_all();

    /** The registry: byte-wise ascending names; an entry may hold null. */
    static std::map<std::string, property_group*> property_groups;

    const std::string name;
    /** The members; added through `add_property`, and never removed one by one. */
    std::map<std::string, property*> m_properties;

private:
    /** After the member added last. */
    std::map<std::string, property*>::iterator m_place = m_properties.end();
};

inline std::map<std::string, property_group*> property_group::property_groups;
