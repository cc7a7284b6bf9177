#include "board/board_files.hpp"
#include "checker/checked_property.hpp"
#include "checker/known_properties.hpp"
#include "property/property_file.hpp"
#include "property/property_regulator_voltage.hpp"
#include "property/property_set.hpp"
#include "targets/register_bench.hpp"
#include "targets/targets.hpp"
#include "targets/value_input.hpp"

namespace {

/** Sets the property to the values of the input, one after another. */
findings set_all(property& p, const value_input& input, const memory_board& board,
                 const board_files& files) {
    property::m_number_mode = input.hexadecimal ? 1 : 0;
    invariant_checker checker(board, files);
    checked_property checked(p, known_properties().at(p.name), checker);
    for (const std::string& value : input.values) {
        checked.set(value);
    }
    property::m_number_mode = 0;
    return checker.violations();
}

findings set_field(const std::string& register_name, const std::string& field_name,
                   const std::string& text) {
    static const board_files no_files;
    const value_input input(text);
    const register_bench bench(register_name, input);
    property* const p = property::get_property(register_name + "::" + field_name);
    return set_all(*p, input, bench.board(), no_files);
}

/** A board that has no register. */
const memory_board& empty_board() {
    static const memory_board board(board_model({}, {}));
    return board;
}

/** One file per word of the input's first line; a file without a word is not there. */
file_contents contents_from(const value_input& input, const std::vector<std::string>& paths) {
    file_contents contents;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        contents[paths[i]] = i < input.start.size() ? std::optional(input.start[i]) : std::nullopt;
    }
    return contents;
}

} // namespace

findings plain_value(const std::string& input) {
    return set_field("ebus-delay", "rx", input);
}

findings mapped_value(const std::string& input) {
    return set_field("orlin-ddra", "clkdrv", input);
}

findings read_only_value(const std::string& input) {
    return set_field("pcie-ltssm", "state-ro", input);
}

findings dq_value(const std::string& input) {
    return set_field("orlin-ddra-read2", "dq3", input);
}

findings word_value(const std::string& input) {
    return set_field("orlin-ddra1", "scl", input);
}

findings set_value(const std::string& text) {
    static const board_files no_files;
    const std::string lane = "orlin-ddra-read2::dq";
    const value_input input(text);
    const register_bench bench("orlin-ddra-read2", input);
    property_set set(lane, {lane + "0", lane + "1", lane + "2", lane + "3", lane + "4", lane + "5",
                            lane + "6", lane + "7"});
    return set_all(set, input, bench.board(), no_files);
}

findings file_value(const std::string& text) {
    static board_files files;
    const std::string path = "/sys/kernel/debug/mmc0/rdqs";
    const value_input input(text);
    files.reset(contents_from(input, {path}));
    property_file<int> file("mmc::rdqs", files.path(path), 2, 255);
    return set_all(file, input, empty_board(), files);
}

findings regulator_value(const std::string& text) {
    static board_files files;
    const std::string path = "/sys/class/regulator/regulator.1";
    const value_input input(text);
    files.reset(contents_from(
        input, {path + "/microvolts", path + "/min_microvolts", path + "/max_microvolts"}));
    property_regulator_voltage regulator("cpu_regulator::microvolts", files.path(path), 93, 107);
    return set_all(regulator, input, empty_board(), files);
}
