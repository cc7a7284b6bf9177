#include "tune/text/options.hpp"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>

#include <getopt.h>

#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

constexpr option long_options[] = {
    {"help", no_argument, nullptr, 'h'},          {"version", no_argument, nullptr, 'v'},
    {"wait", required_argument, nullptr, 'w'},    {"json", no_argument, nullptr, 'j'},
    {"all", no_argument, nullptr, 'a'},           {"together", no_argument, nullptr, 't'},
    {"stop", required_argument, nullptr, 's'},    {"repeat", required_argument, nullptr, 'r'},
    {"timeout", required_argument, nullptr, 'T'}, {"settle", required_argument, nullptr, 'S'},
    {"lead", required_argument, nullptr, 'l'},    {"no-control", no_argument, nullptr, 'c'},
    {"continue", no_argument, nullptr, 'C'},      {"retry-hangs", no_argument, nullptr, 'R'},
    {"force", no_argument, nullptr, 'f'},         {nullptr, 0, nullptr, 0}};

double to_seconds(const char* name, const char* text) {
    char* end = nullptr;
    const double seconds = std::strtod(text, &end);
    if (end == text || *end != '\0' || !(seconds >= 0 && seconds < 1e9)) {
        throw mistake(std::string("--") + name + " takes a number of seconds, not " +
                      in_quotes(text));
    }
    return seconds;
}

std::size_t to_count(const char* name, std::string_view text, std::size_t most) {
    std::size_t count = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
    if (error != std::errc() || end != text.data() + text.size() || count < 1 || count > most) {
        throw mistake(std::string("--") + name + " takes a number from 1 to " +
                      std::to_string(most) + ", not " + in_quotes(text));
    }
    return count;
}

/** The option that getopt does not know: a letter, which may stand among others, or a word. */
std::string option_in(const std::vector<char*>& argv) {
    const char* const word = argv[static_cast<std::size_t>(optind) - 1];
    if (optopt == 0 || std::string_view(word).starts_with("--")) {
        return word;
    }
    return std::string("-") + static_cast<char>(optopt);
}

/** Takes in an option, other than help and version. @return whether it is one of a command's own */
bool take(int letter, command_line& words) {
    switch (letter) {
    case 'w':
        words.wait_seconds = to_seconds("wait", optarg);
        return false;
    case 'o':
        words.output = optarg;
        break;
    case 's':
        words.sweep.stop = to_count("stop", optarg, 1000);
        break;
    case 'r':
        words.sweep.repeat = to_count("repeat", optarg, 100);
        break;
    case 'T':
        words.sweep.timeout = to_seconds("timeout", optarg);
        if (*words.sweep.timeout == 0) {
            throw mistake("--timeout takes a number of seconds above 0");
        }
        break;
    case 'S':
        words.sweep.settle = to_seconds("settle", optarg);
        break;
    case 'l':
        words.sweep.lead = to_seconds("lead", optarg);
        break;
    default:
        break;
    }
    return true;
}

} // namespace

parsed_words parse_words(const std::vector<std::string>& words) {
    const auto dashes = std::find(words.begin(), words.end(), "--");
    std::vector<std::string> texts(words.begin(), dashes);
    texts.insert(texts.begin(), "brisel-tune");
    std::vector<char*> argv;
    argv.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        argv.push_back(text.data());
    }
    argv.push_back(nullptr);
    const int argc = static_cast<int>(texts.size());
    parsed_words parsed;
    optind = 0; // begin anew
    for (int found = 0;
         (found = getopt_long(argc, argv.data(), "-:hno:", long_options, nullptr)) != -1;) {
        if (found == 1) { // no option
            parsed.words.operands.emplace_back(optarg);
            continue;
        }
        if (found == '?') {
            throw mistake("unknown option: " + in_quotes(option_in(argv)));
        }
        if (found == ':') {
            throw mistake("option without its argument: " +
                          in_quotes(argv[static_cast<std::size_t>(optind) - 1]));
        }
        if (take(found, parsed.words)) {
            parsed.options += static_cast<char>(found);
        }
    }
    const auto given = [&](char letter) {
        return parsed.options.find(letter) != std::string::npos;
    };
    parsed.words.json = given('j');
    parsed.words.all = given('a');
    parsed.words.dry_run = given('n');
    parsed.words.force = given('f');
    parsed.words.sweep.together = given('t');
    parsed.words.sweep.control = !given('c');
    parsed.words.sweep.continued = given('C');
    parsed.words.sweep.retry_hangs = given('R');
    if (dashes != words.end()) {
        parsed.words.test.assign(dashes + 1, words.end());
    }
    return parsed;
}
