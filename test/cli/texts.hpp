#pragma once

#include <string>

/** Names that many rows and tests use: a plain field, a mapped one, a set, and the files. */
inline const std::string sda = "i2c0-delay::sda-delay"; // bits 3..0
inline const std::string odt = "orlin-ddra::odt";
inline const std::string lanes = "pelune-ddr-read1::dq";
inline const std::string rdqs_file = "/sys/kernel/debug/mmc0/rdqs";
inline const std::string lock_file = "/tmp/brisel.lock";

/** Texts that many rows expect. */
inline const std::string usage = "brisel [options] [<property> [value if write]]\n"
                                 "options:\n"
                                 "\t-h            : help\n"
                                 "\t-i            : interactive mode\n"
                                 "\t-l            : list all properties\n"
                                 "\t-x            : show hex value (default decimal)\n";

inline const std::string unknown = "No such property registered.\n";

inline std::string got(const std::string& name, const std::string& value) {
    return "BRISEL: get " + name + " := " + value + "\n";
}

inline std::string get_failed(const std::string& name) {
    return "BRISEL: get " + name + "failed.\n";
}

inline std::string set_done(const std::string& name, const std::string& value) {
    return "BRISEL: set " + name + " := " + value + "\n";
}

inline std::string set_failed(const std::string& name, const std::string& value) {
    return "BRISEL: set " + name + " := " + value + " failed.\n";
}

inline std::string warning(const std::string& request, const std::string& current,
                           const std::string& max, const std::string& result) {
    return "warning! applying " + request + " to current value " + current +
           " is out of range (0 ~ " + max + "). adjusted to " + result + "\n";
}

inline std::string uncaught(const std::string& type, const std::string& what) {
    return "terminate called after throwing an instance of 'std::" + type +
           "'\n  what():  " + what + "\n";
}
