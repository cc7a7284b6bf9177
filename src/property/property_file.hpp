#pragma once

#include <string>

#include "property/property.hpp"

/**
 * A decimal integer kept in a text file of debugfs or sysfs, within a fixed range.
 *
 * The file is read once, at construction. A file that cannot be opened, or whose value is out of
 * range, makes the property invalid for good: `get` and `set` then return false. Values are
 * always decimal, whatever the number mode.
 *
 * @tparam T the value type; the program uses `int`, and only that one is instantiated
 */
template <class T>
class property_file : public property {
public:
    /**
     * Reads the file at once (see `read_update`).
     * @param min, max the legal range, both inclusive
     */
    property_file(const std::string& property_name, std::string path, T min, T max);

    /**
     * Sets the value, absolutely or (a text of more than one character that begins with "+" or
     * "-") by a step, and writes the file. A value beyond a bound is limited and reported on
     * standard error. A text without a number counts as 0.
     * @return false when the property is invalid (nothing is done) or the file cannot be opened
     *         for writing (the cached value then keeps the new number all the same)
     */
    bool set(const std::string& value) override;

    /** The cached value; the file is not read again. */
    bool get(std::string& value) override;

    /**
     * Reads the file's first word into the cache and validates it; failures are reported on
     * standard error. A file without a number counts as 0.
     * @return true when the property is valid
     */
    virtual bool read_update();

    /**
     * Replaces the file's contents with the digits of the cached value, without a newline.
     * @return false when the property is invalid or the file cannot be opened; a failure while
     *         writing is not noticed
     */
    virtual bool commit();

    /** Reports, on standard error, that a requested value was limited. */
    virtual void warn_about_range(const std::string& requested, T limit);

    const std::string& path() const { return m_path; }
    T min() const { return m_min; }
    T max() const { return m_max; }

protected:
    const std::string m_path;
    /** The cached value; meaningful while `m_valid` is true. */
    T m_value = 0;
    const T m_min;
    const T m_max;
    /** The file was read and its value lay inside the range. */
    bool m_valid = false;

private:
    /** The value that a text asks for: limited to the range, unless a step wrapped out of it. */
    T requested_value(const std::string& text);
    T limited(const std::string& text, T limit);
};

extern template class property_file<int>;
