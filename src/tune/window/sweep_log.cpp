#include "tune/window/sweep_log.hpp"

#include <algorithm>

#include "tune/text/mistake.hpp"
#include "tune/text/shell_words.hpp"
#include "tune/text/text.hpp"

namespace {

/** The rest of a line that begins with a word; the word is taken away. */
bool take_word(std::string_view& line, std::string_view word) {
    if (!line.starts_with(word) || line.substr(word.size(), 1) != " ") {
        return false;
    }
    line.remove_prefix(word.size() + 1);
    return true;
}

void take_session(sweep_log& log, std::string_view line, std::size_t number) {
    constexpr std::string_view between = ", boot ";
    const std::size_t place = line.find(between);
    if (place == std::string_view::npos) {
        throw mistake("a session without its boot");
    }
    log.complete = false;
    log.sessions.push_back({number, std::string(line.substr(0, place)),
                            std::string(line.substr(place + between.size())), ""});
}

void take_run(sweep_log& log, std::string_view line, std::size_t number) {
    log.where_run = log.name + ":" + std::to_string(number);
    log.run = from_shell(line);
    if (log.run.empty() || log.run.front() != "sweep") {
        throw mistake(in_quotes(line) + " is no sweep");
    }
}

void take_point(sweep_log& log, std::string_view line) {
    log.sessions.back().whole = true;
    log.sessions.back().begun = true;
    from_shell(line); // or it is a mistake
    log.points.push_back({line, {verdict::hang, 0, 0}});
}

void take_verdict(sweep_log& log, std::string_view line) {
    const auto result = to_result(line.substr(0, line.find(' ')));
    if (!result || log.points.empty()) {
        throw mistake(in_quotes(line) + " is no line of a log");
    }
    log.points.back().result = *result;
}

void take_line(sweep_log& log, std::string_view line, std::size_t number) {
    if (line.starts_with("|") || take_word(line, "version") || take_word(line, "note")) {
        return;
    }
    if (take_word(line, "machine")) {
        log.machine = line;
    } else if (take_word(line, "run")) {
        take_run(log, line, number);
    } else if (!log.run.empty() && take_word(line, "session")) {
        take_session(log, line, number);
    } else if (!log.sessions.empty() && take_word(line, "before")) {
        log.sessions.back().before.append(line).append("\n");
    } else if (!log.sessions.empty() && take_word(line, "order")) {
        log.sessions.back().whole = true;
    } else if (!log.sessions.empty() && take_word(line, "try")) {
        take_point(log, line);
    } else if (take_word(line, "end")) {
        log.complete = line == "complete";
    } else {
        take_verdict(log, line);
    }
}

} // namespace

std::string log_lines_of(std::string_view text) {
    std::string lines;
    for (const std::string_view line : lines_of(text)) {
        lines += "| " + printable(line) + "\n";
    }
    return lines;
}

const sweep_session& first_session(const sweep_log& log) {
    const auto found = std::find_if(log.sessions.begin(), log.sessions.end(),
                                    [](const sweep_session& s) { return s.whole; });
    if (found == log.sessions.end()) {
        throw mistake(log.where_end + ": the log ends before its first point");
    }
    return *found;
}

const sweep_session& last_begun(const sweep_log& log) {
    const auto found = std::find_if(log.sessions.rbegin(), log.sessions.rend(),
                                    [](const sweep_session& s) { return s.begun; });
    return found == log.sessions.rend() ? first_session(log) : *found;
}

const sweep_session* session_of(const sweep_log& log, const std::string& boot) {
    const auto found =
        std::find_if(log.sessions.rbegin(), log.sessions.rend(),
                     [&](const sweep_session& s) { return s.begun && s.boot == boot; });
    return found == log.sessions.rend() ? nullptr : &*found;
}

sweep_log parse_log(std::string text, const std::string& where) {
    sweep_log log;
    log.name = where;
    log.text = std::make_shared<const std::string>(std::move(text));
    std::string_view rest = *log.text;
    std::size_t number = 1;
    for (; !rest.empty(); ++number) {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        log.is_cut = line.size() == rest.size();
        if (number == 1 && (log.is_cut ? !log_title.starts_with(line) : line != log_title)) {
            throw mistake(where + ":1: not " + in_quotes(log_title));
        }
        if (log.is_cut) {
            break;
        }
        rest.remove_prefix(line.size() + 1);
        if (number == 1 || line.ends_with(cut_mark)) {
            continue;
        }
        try {
            take_line(log, line, number);
        } catch (const mistake& problem) {
            throw mistake(where + ":" + std::to_string(number) + ": " + problem.what());
        }
    }
    log.where_end = where + ":" + std::to_string(number);
    if (log.run.empty()) {
        throw mistake(log.where_end + ": the log ends before it says what the sweep is: nothing "
                                      "was tried");
    }
    return log;
}
