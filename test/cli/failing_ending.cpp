#include "cli/failing_ending.hpp"

#include "cli/texts.hpp"

namespace {

/** A property that cannot be read or written: the program says so and ends in order. */
ending refused(const failing_command& command, const failing_run& clean,
               const std::string& message = "") {
    const std::string& name = command.args[0];
    if (command.args.size() == 1) {
        return {{"\n", message + get_failed(name), 246}, clean.file_before, false};
    }
    return {{"", message + set_failed(name, command.args[1]), 245}, clean.file_before, false};
}

ending stopped(const failing_run& clean, const std::string& message, int status) {
    return {{"", message, status}, clean.file_before, true};
}

/** The file of rdqs is read before anything else; only the commands on it need it. */
ending without_rdqs(const failing_command& command, const failing_run& clean,
                    const std::string& message) {
    if (command.file == rdqs_file) {
        return refused(command, clean, message);
    }
    return {{clean.result.out, message + clean.result.err, clean.result.status}, clean.file, false};
}

} // namespace

std::vector<call_event> events_of(const std::string& call, const std::vector<std::string>& trace) {
    std::vector<call_event> events;
    std::size_t accesses = 0;
    for (const std::string& line : trace) {
        const std::string verb = line.substr(0, line.find(' '));
        accesses += verb == "read" || verb == "write" ? 1U : 0U;
        const bool opens_file = line.starts_with("open /sys/");
        if ((call == "open" && verb == "open") || (call == "mmap" && verb == "map") ||
            (call == "flock" && (verb == "lock" || verb == "unlock"))) {
            events.push_back({line, accesses});
        } else if ((call == "read" && opens_file && line.ends_with(" r")) ||
                   (call == "write" && opens_file && line.ends_with(" w"))) {
            // The one transfer that follows has no line of its own.
            const std::size_t path = verb.size();
            events.push_back({call + line.substr(path, line.rfind(' ') - path), accesses});
        }
    }
    return events;
}

ending expected_ending(const failing_command& command, const failing_run& clean,
                       const call_event& event, const std::string& reason) {
    const std::string& line = event.line;
    if (line.starts_with("open /dev/") || line.starts_with("map ")) {
        const std::string& access = clean.accesses.at(event.accesses);
        const std::string address = access.substr(access.find(' ') + 1, 10);
        return stopped(clean,
                       line.substr(0, line.find(' ')) + " /dev/zeb_mem for address " + address +
                           " failed: " + reason + "\n",
                       aborted);
    }
    if (line == "open /tmp/brisel.lock rw") {
        return stopped(clean, "Failed to open /tmp/brisel.lock\nFailed to lock!\n", 255);
    }
    if (line.starts_with("lock ")) {
        return stopped(clean, "Failed to lock!\n", 255);
    }
    if (line.starts_with("unlock ")) {
        return {clean.result, clean.file, false};
    }
    if (line == "open " + rdqs_file + " r") {
        return without_rdqs(command, clean, "open " + rdqs_file + " failed.\n");
    }
    if (line == "read " + rdqs_file) {
        return without_rdqs(command, clean,
                            "current value 0 is not valid, valid range = 2 ~ 255\n");
    }
    if (line == "open " + rdqs_file + " w") {
        return refused(command, clean, "open " + rdqs_file + " failed.\n");
    }
    if (line.starts_with("open ") && line.ends_with(" r")) {
        return refused(command, clean);
    }
    if (line.starts_with("read ")) {
        return stopped(clean, uncaught("invalid_argument", "stol"), aborted);
    }
    // A file that takes no new value is not told of.
    return {clean.result, clean.file_before, false};
}
