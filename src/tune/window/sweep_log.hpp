#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "tune/window/verdict.hpp"

/*
 * The log of a sweep: text, a line per event, each on the disk before the next thing is done.
 *
 *     brisel-tune sweep log, format 1
 *     machine Board (board1, armv7l)
 *     version 1.4.0
 *     run sweep orlin-ddra-read0::dq3 -- memtester 16M 1
 *     session 2026-11-22 14:00:00 UTC, boot 4f0c5b9e-...
 *     before orlin-ddra-read0::dq3 = 65
 *     order orlin-ddra-read0::dq3: 127 points, d-63 to d+63, from d+1 outwards
 *     try orlin-ddra-read0::dq3=d+2
 *     fail 1.204 s
 *     | bit 3 is wrong
 *     end complete
 *
 * A sweep that goes on writes "session", "before" and so on again. Where the line before that has
 * no end it is marked, so that it is no line of the log.
 */

inline constexpr std::string_view log_title = "brisel-tune sweep log, format 1";

/** What is put behind a line that was cut off: no line of a log ends with it. */
inline constexpr std::string_view cut_mark = " <cut>";

/** A part of a sweep, from a start of the program to its end. */
struct sweep_session {
    std::size_t line; ///< its number in the log
    std::string date;
    std::string boot;
    std::string before; ///< lines of a tuning: what the axes' properties held
    bool whole = false; ///< nothing of `before` is cut off: there are lines behind it
    bool begun = false; ///< a point was tried
};

/** A point that was tried. */
struct tried_point {
    std::string_view place; ///< "NAME=VALUE" for each axis, quoted as the shell does
    point_result result;    ///< a hang as long as nothing else is known
};

/** What a log says. */
struct sweep_log {
    std::string name; ///< of the file, for messages
    std::string machine;
    std::vector<std::string> run; ///< the command line behind the program's name
    std::string where_run;        ///< "FILE:LINE" of that
    std::string where_end;        ///< the same of its end
    std::vector<sweep_session> sessions;
    std::shared_ptr<const std::string> text; ///< all of it
    std::vector<tried_point> points;         ///< in their order; they refer to the text
    bool complete = false;
    bool is_cut = false; ///< the last line has no end
};

/** The lines that a log has for what was said: each behind "| ", without what is not printable. */
std::string log_lines_of(std::string_view text);

/**
 * The first session of a log that says what all the properties held.
 * @throw mistake where the log ends before that
 */
const sweep_session& first_session(const sweep_log& log);

/** The last session in which a point was tried; of a log without a point the first, as above. */
const sweep_session& last_begun(const sweep_log& log);

/** The last session of a log in a boot in which a point was tried; null for none. */
const sweep_session* session_of(const sweep_log& log, const std::string& boot);

/**
 * Reads a log, which may be cut off anywhere behind the line that begins with "run".
 * @param where the file's name, for messages
 * @throw mistake for what is no such log, with the line
 */
sweep_log parse_log(std::string text, const std::string& where);
