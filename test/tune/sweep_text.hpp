#pragma once

#include <map>
#include <string>
#include <vector>

/** What a test has logged, written by hand. */
namespace sweep_texts {

/**
 * The beginning of a log.
 * @param run    the words behind "sweep"
 * @param before what the properties held: lines of a tuning without blanks, "mac-tx::delay=2"
 */
inline std::string head_of(const std::string& run, const std::vector<std::string>& before) {
    std::string text = "brisel-tune sweep log, format 1\nmachine Board (board1, armv7l)\n"
                       "version 1.4.0\nrun sweep " +
                       run + "\nsession 2026-11-22 14:00:00 UTC, boot b1\n";
    for (const std::string& line : before) {
        text += "before " + line + "\n";
    }
    return text + "order outwards\n";
}

/**
 * Points of a row, each as the C locale draws it; what is '.' was not tried.
 * @param name   the property, with "=d" where the points are delays
 * @param from   the first point
 * @param behind the second axis's words
 */
inline std::string row_of(const std::string& name, int from, const std::string& signs,
                          const std::string& behind = "") {
    const std::map<char, std::string> verdicts = {
        {'*', "pass 0.1 s\n"},       {'x', "fail 0.1 s\n| wrong\n"}, {'t', "timeout 0.1 s\n"},
        {'n', "no-stick 0.1 s\n"},   {'u', "fail 0.1 s\nunsound\n"}, {'H', ""},
        {'i', "interrupted 0.1 s\n"}};
    const bool signs_numbers = name.ends_with('d');
    std::string text;
    for (const char sign : signs) {
        if (sign != '.') {
            const std::string plus = signs_numbers && from >= 0 ? "+" : "";
            text += "try " + name + plus + std::to_string(from) + behind + "\n";
            const auto found = verdicts.find(sign);
            text += found == verdicts.end() ? std::string(1, sign) + "/5 0.1 s\n" : found->second;
        }
        ++from;
    }
    return text;
}

inline const std::string lane = "orlin-ddra-read0::dq3";
inline const std::string slice = "orlin-ddra-read0::dq"; ///< of which it is

/** The log of a lane from d-8 to d+8. */
inline std::string lane_log(const std::string& signs, const std::string& present = "64") {
    return head_of("--repeat=5 " + lane + "=d-8..d+8 -- memtester 64M 1", {lane + "=" + present}) +
           row_of(lane + "=d", -8, signs) + "end complete\n";
}

/** The log of mac-tx::delay, with mac-rx::delay from 2 to 4 as the rows. */
inline std::string grid_log(const std::vector<std::string>& rows, const std::string& tx = "5",
                            const std::string& rx = "3") {
    std::string text = head_of("mac-tx::delay mac-rx::delay=2..4 -- test",
                               {"mac-tx::delay=" + tx, "mac-rx::delay=" + rx});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        text += row_of("mac-tx::delay=", 0, rows[i], " mac-rx::delay=" + std::to_string(2 + i));
    }
    return text + "end complete\n";
}

} // namespace sweep_texts
