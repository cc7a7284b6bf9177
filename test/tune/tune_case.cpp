#include "tune/tune_case.hpp"

#include <algorithm>
#include <fstream>
#include <regex>

namespace {

void replace_all(std::string& text, const std::string& from, const std::string& to) {
    for (std::size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

/** A log without what is another one in each run. */
void make_same(std::string& log) {
    const std::pair<const char*, const char*> rules[] = {
        {"(^|\n)machine [^\n]*", "$1machine M"},
        {"\nversion [^\n]*", "\nversion V"},
        {"\nsession [^\n]*", "\nsession S"},
        {"\n(pass|fail|timeout|no-stick|unsound|interrupted|[0-9]/[0-9])\n",
         "\n$1 without its time\n"},
        {" [0-9]+\\.[0-9]{3} s\n", "\n"},
    };
    for (const auto& [pattern, text] : rules) {
        log = std::regex_replace(log, std::regex(pattern), text);
    }
}

} // namespace

run_result run_tune(const board& on_board, const std::vector<std::string>& args,
                    const std::string& tuning) {
    const std::string path = on_board.path("/tmp/tuning");
    std::ofstream(path, std::ios::binary) << tuning;
    std::vector<std::string> words = args;
    std::replace(words.begin(), words.end(), tuning_file, path);
    run_result result = on_board.capture(on_board.launch(words, "brisel-tune"));
    replace_all(result.err, path, tuning_file);
    replace_all(result.err, "brisel-tune: ", "");
    make_same(result.out);
    return result;
}
