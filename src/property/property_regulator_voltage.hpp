#pragma once

#include <cstdint>
#include <string>

#include "property/property.hpp"

/**
 * The output voltage of one regulator, through its sysfs directory, in microvolts.
 *
 * The first `get` or `set` loads the regulator's limits, and its present voltage as the base of
 * percentages, for the life of the object. Voltages are always decimal, whatever the number mode.
 */
class property_regulator_voltage : public property {
public:
    /**
     * Touches no file.
     * @param path the regulator's sysfs directory, without a trailing slash
     * @param min_percent, max_percent the percentages of the base voltage that `set` accepts,
     *        both inclusive
     */
    property_regulator_voltage(const std::string& property_name, std::string path,
                               double min_percent, double max_percent);

    /**
     * Sets a voltage in microvolts or, with a "%" at the end, as a percentage of the base.
     * The voltage is raised to a whole multiple of 10000 microvolts. A percentage out of range,
     * or a voltage outside the regulator's limits, is reported on standard error and refused.
     * @return true when the voltage was handed to the regulator, even if its file could not be
     *         opened; false when it was refused or the limits could not be read
     * @throw std::invalid_argument, std::out_of_range "stod" for the text, "stol" for a file
     */
    bool set(const std::string& value) override;

    /**
     * The regulator's present voltage, read anew.
     * @return false when a file cannot be opened or the voltage is negative
     * @throw std::invalid_argument, std::out_of_range "stol" for what a file holds
     */
    bool get(std::string& value) override;

    const std::string& path() const { return m_path; }
    double min_percent() const { return m_min_percent; }
    double max_percent() const { return m_max_percent; }

protected:
    const std::string m_path;
    const double m_min_percent;
    const double m_max_percent;
    /** The regulator's limits and the voltage at the first use, all in microvolts; meaningful
     *  once `m_limits_loaded` is true. */
    std::uint32_t m_min_uv = 0;
    std::uint32_t m_max_uv = 0;
    bool m_limits_loaded = false;
    std::uint32_t m_base_uv = 0;

    /** Reads the first word of a file as a signed 32-bit number; false when it cannot be opened. */
    static bool _fileintread(const std::string& path, std::int32_t& value);
    /** Replaces the contents of a file; false when it cannot be opened. */
    static bool _fileintwrite(const std::string& path, std::int32_t value);

private:
    bool load_limits();
    /** The voltage in "microvolts"; false when it cannot be read or is negative. */
    bool read_voltage(std::uint32_t& microvolts);
    /** A limit; a negative number is kept as the unsigned number of the same bits. */
    bool read_limit(const char* file, std::uint32_t& microvolts);
    /** The number in a file of the regulator's directory; false when it cannot be opened. */
    bool read_number(const char* file, std::int32_t& number);
};
