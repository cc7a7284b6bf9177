#include <algorithm>
#include <csignal>
#include <limits>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <unistd.h>

#include "platform/register_properties.hpp"
#include "process/standard_descriptors.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "tune/board/child.hpp"
#include "tune/commands.hpp"
#include "tune/text/console.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/options.hpp"
#include "tune/text/text.hpp"

namespace {

constexpr const char* usage_end = R"(
  --wait SECONDS   how long to wait for another instance (default: as long as it takes)
  -h, --help       this text
  --version        the version

of sweep:
  -o LOG           the log, a new file (default: standard output, but no terminal)
  --continue LOG   goes on with a log; --retry-hangs tries again what hung
  --all            every point; or else a side ends after --stop N (3) that do not pass, or a hang
  --together       a set of lanes is one axis: offsets to the present delays
  --repeat N       runs of COMMAND at each point, all of which have to pass
  --timeout S      seconds after which COMMAND is ended
  --settle S       seconds to wait after setting a value
  --lead S         seconds that a line of the log needs to leave the board through a pipe (1)
  --no-control     does not run COMMAND again at the values before after a point that did not pass

NAME is a property, a group, or a pattern such as 'i2c*'. VALUE is a number, d+N or d-N for the delay of
a DQ lane, raw:N for a code that stands for no value, or {V,...} for a set. FILE may be -, for standard
input. Exit status: 0 done; 1 a difference, a value that cannot be read, all put back, or a sweep that
ended early or found no pass; 2 a mistake.
)";

/** A command, its work, how many operands it takes, and the options beside --wait. */
struct command {
    std::string_view name;
    const char* operands;
    const char* help;
    tune_status (*run)(const knobs&, const command_line&);
    std::size_t least;
    std::size_t most;
    std::string_view options;
};

constexpr std::size_t any_number = std::numeric_limits<std::size_t>::max();

constexpr std::size_t most_logs = 255; // as `point_result` counts

constexpr command commands[] = {
    {"list", "[--json] [NAME...]", "what can be tuned, and within which limits", list_knobs, 0,
     any_number, "j"},
    {"get", "NAME...", "present values", get_values, 1, any_number, ""},
    {"set", "NAME=VALUE...", "sets all of these, or none", set_values, 1, any_number, ""},
    {"save", "[-o FILE] NAME... | --all", "notes a tuning", save_values, 0, any_number, "oa"},
    {"diff", "FILE [FILE]", "compares a tuning with the board, or with another one",
     show_differences, 1, 2, ""},
    {"sweep", "AXIS [AXIS] -- COMMAND...", "runs COMMAND at each value of one or two knobs",
     sweep_axes, 1, 2, "osrTSltcaCR"},
    {"best", "LOG...", "the middle of each lane's widest window, as a tuning", find_best, 1,
     most_logs, ""},
    {"plot", "[-o FILE] LOG...", "draws the eye of a sweep; into FILE.svg or FILE.html", plot_sweep,
     1, most_logs, "o"},
    {"restore", "[--force] LOG", "puts back what a sweep found", restore_values, 1, 1, "f"},
    {"apply", "[-n] FILE", "sets what differs, or nothing; -n shows what it would set",
     apply_tuning, 1, 1, "n"},
};

std::string synopsis(const command& c) {
    return std::string(c.name).append(" ").append(c.operands);
}

std::string usage() {
    std::string text = "brisel-tune COMMAND [ARGUMENT...]\n\n";
    for (const command& each : commands) {
        std::string line = synopsis(each);
        line.resize(std::max<std::size_t>(line.size() + 2, 34), ' ');
        text += "  " + line + each.help + "\n";
    }
    return text + usage_end;
}

const command& command_named(const std::string& name) {
    for (const command& each : commands) {
        if (each.name == name) {
            return each;
        }
    }
    throw mistake("no such command: " + in_quotes(name) + "; see brisel-tune --help");
}

tune_status act(int argc, char* argv[]) {
    auto [words, options] = parse_words({argv + std::min(argc, 1), argv + argc});
    if (options.find('h') != std::string::npos) {
        show(usage());
        return tune_status::done;
    }
    if (options.find('v') != std::string::npos) {
        show("brisel-tune " BRISEL_VERSION "\n");
        return tune_status::done;
    }
    if (words.operands.empty()) {
        throw mistake("no command; see brisel-tune --help");
    }
    const command& its_command = command_named(words.operands.front());
    words.operands.erase(words.operands.begin());
    if (its_command.run != sweep_axes) {
        words.operands.insert(words.operands.end(), words.test.begin(), words.test.end());
    }
    const std::size_t count = words.operands.size();
    if (options.find_first_not_of(its_command.options) != std::string::npos ||
        count < its_command.least || count > its_command.most) {
        throw mistake("usage: brisel-tune " + synopsis(its_command));
    }
    const knobs all;
    return its_command.run(all, words);
}

} // namespace

int main(int argc, char* argv[]) {
    const bool output_is_closed = fcntl(STDOUT_FILENO, F_GETFD) == -1;
    open_closed_standard_descriptors();
    std::signal(SIGPIPE, SIG_IGN); // a reader that went away is an error like others
    tune_status status = tune_status::no_result;
    try {
        if (output_is_closed) {
            throw mistake("standard output is closed");
        }
        platform_register_properties();
        status = act(argc, argv);
    } catch (const std::exception& problem) {
        say(problem.what());
    }
    property_group::free_all();
    property::free_all();
    return static_cast<int>(status);
}
