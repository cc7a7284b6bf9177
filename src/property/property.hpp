#pragma once

#include <map>
#include <string>

// The ownership lists are defined before the registry, so they outlive it.
#include "reg/reg_info.hpp" // IWYU pragma: keep

class property_group;

/**
 * A named value that can be shown as text and set from text, and the registry of all of them.
 *
 * Properties live on the heap. Once registered, a property belongs to the registry until
 * `free_all`; groups and sets only refer to it.
 */
class property {
public:
    /** @param property_name unique name, the key in the registry; `m_auto_delete` starts true */
    explicit property(const std::string& property_name);
    property(const property&) = delete;
    property& operator=(const property&) = delete;

    virtual ~property() = default;

    /**
     * Parses a value text and applies it.
     * @return true when the value was accepted; on false nothing changed, unless a kind says so
     * @throw std::invalid_argument, std::out_of_range from the number conversions of some kinds
     */
    virtual bool set(const std::string& value) = 0;

    /**
     * Reads the present value and replaces the text with it.
     * @return false when there is none; the text is then left alone
     * @throw as for `set`
     */
    virtual bool get(std::string& value) = 0;

    /** Replaces the text with a help text of one line: here "no help.". */
    virtual void get_help(std::string& help);

    /** Called once when the registry is emptied; deletes the object if `m_auto_delete` is true. */
    virtual void on_unregister();

    /** The property registered under exactly this name, or null. */
    static property* get_property(const std::string& name);

    /**
     * Registers a property under its own name and adds it to a group.
     * @param group not null
     * @return the property, or null when the name is taken: then nothing has changed and the
     *         caller still owns the property
     */
    static property* register_property(property_group* group, property* p);

    /** The same by the group's name; the group is created when absent, even if null is returned. */
    static property* register_property(const std::string& group_name, property* p);

    /** Calls `on_unregister` of every property, in ascending order of names; forgets them all. */
    static void free_all();

    /**
     * The registry: byte-wise ascending names. Filled through `register_property`, and emptied by
     * `free_all` alone. An entry that holds null is not a property.
     */
    static std::map<std::string, property*> properties;

    /** 0: numbers are decimal; 1: hexadecimal. For the kinds that honour it. */
    static int m_number_mode;

    const std::string name;
    bool m_auto_delete = true;
};

inline std::map<std::string, property*> property::properties;
inline int property::m_number_mode = 0;
