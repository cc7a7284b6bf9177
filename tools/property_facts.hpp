#pragma once

#include <string>
#include <vector>

class property;

/** What the catalogue knows of a property, as texts for a reader. */
struct property_facts {
    /** The kind of property: "field", "mapped field", "DQ delay" ... */
    std::string kind;
    /** The values that it takes. */
    std::string legal;
    /** Its help text, or, where that says nothing, what its kind stands for. */
    std::string meaning;
    /** Address and bits, or the file. */
    std::string place;
    /** The legal values of a mapped field in ascending order; for other kinds empty. */
    std::vector<unsigned int> keys;
};

/**
 * The facts of a registered property. Touches no register.
 * @throw std::logic_error for a kind of property, field or register that it does not know
 */
property_facts describe(property& p);
