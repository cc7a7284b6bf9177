#include <csignal>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <getopt.h>
#include <unistd.h>

#include "platform/register_properties.hpp"
#include "process/standard_descriptors.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "tune/child.hpp"
#include "tune/commands.hpp"
#include "tune/console.hpp"
#include "tune/mistake.hpp"
#include "tune/text.hpp"

namespace {

constexpr const char* usage_end = R"(
  --wait SECONDS   how long to wait for another instance (default: as long as it takes)
  -h, --help       this text
  --version        the version

NAME is a property, a group, or a pattern such as 'i2c*'. VALUE is a number, d+N or d-N for the delay of
a DQ lane, raw:N for a code that stands for no value, or {V,...} for a set. FILE may be -, for standard
input. Exit status: 0 done; 1 a difference, a value that cannot be read, or all put back; 2 a mistake.
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

constexpr command commands[] = {
    {"list", "[--json] [NAME...]", "what can be tuned, and within which limits", list_knobs, 0,
     any_number, "j"},
    {"get", "NAME...", "present values", get_values, 1, any_number, ""},
    {"set", "NAME=VALUE...", "sets all of these, or none", set_values, 1, any_number, ""},
    {"save", "[-o FILE] NAME... | --all", "notes a tuning", save_values, 0, any_number, "oa"},
    {"diff", "FILE [FILE]", "compares a tuning with the board, or with another one",
     show_differences, 1, 2, ""},
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
        line.resize(34, ' ');
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

double to_seconds(const char* text) {
    char* end = nullptr;
    const double seconds = std::strtod(text, &end);
    if (end == text || *end != '\0' || !(seconds >= 0 && seconds < 1e9)) {
        throw mistake("--wait takes a number of seconds, not " + in_quotes(text));
    }
    return seconds;
}

/** The option that getopt does not know: a letter, which may stand among others, or a word. */
std::string option_in(char* argv[]) {
    return optopt != 0 && std::strchr(argv[optind - 1], '=') == nullptr
               ? std::string("-") + static_cast<char>(optopt)
               : argv[optind - 1];
}

/** What the words of the command line say. */
struct parsed_words {
    command_line words;
    std::string options; ///< the letters of those given, but --wait
};

/** Takes in all options, wherever they stand. @throw mistake for one that there is not */
parsed_words parse_words(int argc, char* argv[]) {
    const option options[] = {
        {"help", no_argument, nullptr, 'h'},       {"version", no_argument, nullptr, 'v'},
        {"wait", required_argument, nullptr, 'w'}, {"json", no_argument, nullptr, 'j'},
        {"all", no_argument, nullptr, 'a'},        {nullptr, 0, nullptr, 0}};
    parsed_words parsed;
    for (int found = 0; (found = getopt_long(argc, argv, ":hno:", options, nullptr)) != -1;) {
        switch (found) {
        case '?':
            throw mistake("unknown option: " + in_quotes(option_in(argv)));
        case ':':
            throw mistake("option without its argument: " + in_quotes(argv[optind - 1]));
        case 'w':
            parsed.words.wait_seconds = to_seconds(optarg);
            continue;
        case 'o':
            parsed.words.output = optarg;
            break;
        default:
            break;
        }
        parsed.options += static_cast<char>(found);
    }
    const auto given = [&](char letter) {
        return parsed.options.find(letter) != std::string::npos;
    };
    parsed.words.json = given('j');
    parsed.words.all = given('a');
    parsed.words.dry_run = given('n');
    parsed.words.operands.assign(argv + optind, argv + argc);
    return parsed;
}

tune_status act(int argc, char* argv[]) {
    auto [words, options] = parse_words(argc, argv);
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
