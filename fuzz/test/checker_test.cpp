// The checker on a board at power-on, where each row does what the tool should do, or not.

#include <fstream>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "checker/invariant_checker.hpp"
#include "checker/known_properties.hpp"
#include "support/text_file.hpp"

namespace checker_test {

constexpr outcome accepted = outcome::accepted;
constexpr outcome refused = outcome::refused;

/** A read of a register, or a write of a word to it. */
struct access {
    std::uint32_t address;
    std::optional<std::uint32_t> word = std::nullopt;
};

using accesses = std::vector<access>;

constexpr std::uint32_t ebus = 0x11250cbc; // holds 0x604: rx, bits 12 to 8, is 6; tx, 4 to 0, is 4
constexpr std::uint32_t ddra = 0x18428120;
constexpr std::uint32_t dq_select = 0x1842812c;
constexpr std::uint32_t lanes = 0x18428194;
constexpr std::uint32_t pcie = 0x111a2204;

const std::string rx = "ebus-delay::rx";
const std::string dq3 = "orlin-ddra-read2::dq3";
const std::string dq = "orlin-ddra-read2::dq";
const std::string rdqs = "mmc::rdqs";
const std::string cpu = "cpu_regulator::microvolts";
const std::string rdqs_file = "/sys/kernel/debug/mmc0/rdqs";               // 40
const std::string cpu_folder = "/sys/class/regulator/regulator.1";         // 800000 to 1300000
const std::string voltage = "/sys/class/regulator/regulator.1/microvolts"; // 1000000

/** An access to a lane of the third slice, right behind its selector. */
accesses lane(std::uint32_t number, std::optional<std::uint32_t> word = std::nullopt) {
    return {{dq_select, number << 8 | 14}, {lanes, word}};
}

accesses operator+(accesses one, const accesses& other) {
    one.insert(one.end(), other.begin(), other.end());
    return one;
}

/** The first seven lanes read and written. */
accesses seven_lanes() {
    accesses all;
    for (std::uint32_t number = 0; number < 7; ++number) {
        all = all + lane(number) + lane(number, 0x80 + number);
    }
    return all;
}

struct row {
    std::string name;
    accesses made;
    file_contents written; ///< into files
    std::string property;
    outcome result;
    std::string text;    ///< that was set, or shown
    findings found = {}; ///< what the checker has to say
    bool shown = false;  ///< the property was read, not set
    bool hexadecimal = false;
};

void PrintTo(const row& r, std::ostream* out) {
    *out << r.property << ' ' << r.text;
}

class Checker : public testing::TestWithParam<row> {};

board_model at_power_on() {
    std::ifstream file(POWER_ON_DIR "/registers");
    return board_model(register_table::parse(file, "registers"), {});
}

TEST_P(Checker, FindsWhatIsWrong) {
    const row& r = GetParam();
    const board_files files({{rdqs_file, "40"},
                             {voltage, "1000000\n"},
                             {cpu_folder + "/min_microvolts", "800000\n"},
                             {cpu_folder + "/max_microvolts", "1300000\n"}});
    memory_board board(at_power_on());
    invariant_checker checker(board, files);
    for (const access& each : r.made) {
        each.word ? board.write(each.address, *each.word) : void(board.read(each.address));
    }
    for (const auto& [path, text] : r.written) {
        text ? write_text(files.path(path), *text)
             : void(std::filesystem::remove(files.path(path)));
    }
    const property_target& target = known_properties().at(r.property);
    r.shown ? checker.check_get(target, r.result, r.text, r.hexadecimal)
            : checker.check_set(target, r.result, r.text);
    EXPECT_EQ(checker.violations(), r.found);
}

// clang-format off
const row in_registers[] = {
    {"FieldWritten", {{ebus}, {ebus, 0x1f04}, {ebus}}, {}, rx, accepted, "31"},
    {"FieldShown", {{ebus}}, {}, rx, accepted, "6", {}, true},
    {"FieldShownInHexadecimal", {{ebus}}, {}, rx, accepted, "0x6", {}, true, true},
    {"NumberBeyondSixtyFourBits", {}, {}, rx, outcome::out_of_range, "99999999999999999999"},
    {"DqWritten", lane(3) + lane(3, 0x85), {}, dq3, accepted, "5"},
    {"SetStoppedHalfWay", seven_lanes() + lane(7), {}, dq, refused, "{0,1,2,3,4,5,6,200}"},
    {"ListOfTheWrongLength", {}, {}, dq, refused, "{1,2,3}"},
    {"ChangedNeighbour", {{ebus}, {ebus, 0x2604}}, {}, rx, accepted, "6",
     {"bits outside the field changed: 0x00002000 in 0x11250cbc"}},
    {"WrittenWithoutBeingRead", {{ebus, 0x604}}, {}, rx, accepted, "6",
     {"written without being read: 0x11250cbc"}},
    {"RefusedAndWritten", {{ebus}, {ebus, 0x604}}, {}, rx, refused, "32", {"refused and written"}},
    {"WrittenBeforeAnException", {{ebus}, {ebus, 0x604}}, {}, rx, outcome::out_of_range,
     "99999999999999999999", {"refused and written"}},
    {"AcceptedAndNotWritten", {{ebus}}, {}, rx, accepted, "6", {"accepted and not written"}},
    {"WrittenWhileReading", {{ebus}, {ebus, 0x604}}, {}, rx, accepted, "6",
     {"written while reading: 0x11250cbc"}, true},
    {"AnotherValueShown", {{ebus}}, {}, rx, accepted, "4", {"shown: 4, held: 6"}, true},
    {"LegalValueNotShown", {{ebus}}, {}, rx, refused, "", {"shown: nothing, held: 6"}, true},
    {"ShownAndNeverRead", {}, {}, rx, accepted, "6",
     {"never read: 0x11250cbc", "shown: 6, held: no legal value"}, true},
    {"ExceptionOfTheWrongKind", {}, {}, rx, outcome::invalid_argument, "abc",
     {"std::invalid_argument from a property that is no regulator"}},
    {"ExceptionWhileReading", {{ebus}}, {}, rx, outcome::out_of_range, "",
     {"std::out_of_range where no number is out of range", "shown: nothing, held: 6"}, true},
    {"AccessBesideAWord", {{ebus + 2}}, {}, rx, refused, "32",
     {"not aligned: 0x11250cbe", "no register there: 0x11250cbe",
      "not a register of the property: 0x11250cbe"}},
    {"AccessToAnotherRegister", {{ddra}}, {}, rx, refused, "32",
     {"not a register of the property: 0x18428120"}},
    {"NotSelected", lane(3) + accesses{{lanes}}, {}, dq3, refused, "128",
     {"data register accessed without selecting: 0x18428194"}},
    {"DqWithoutBit7", lane(3) + lane(3, 0x05), {}, dq3, accepted, "5",
     {"not set: 0x00000080 in 0x18428194"}},
    {"DqWithBit8", lane(3) + lane(3, 0x185), {}, dq3, accepted, "5",
     {"bits outside the field changed: 0x00000100 in 0x18428194"}},
    {"ChangeOfAnotherLane", lane(3) + lane(4) + lane(3, 0x85) + lane(4, 0x7f), {}, dq3, accepted,
     "5", {"bits outside the field changed: 0x0000003d in 0x18428194"}},
    {"CodeThatIsNotInTheMap", {{ddra}, {ddra, 0x403b02b4}}, {}, "orlin-ddra::clkdrv", accepted,
     "30", {"not a code of the map: 0x403b02b4 in 0x18428120"}},
    {"ReadOnlyFieldWritten", {{pcie}, {pcie, 0x13}}, {}, "pcie-ltssm::state-ro", refused, "0x13",
     {"bits outside the field changed: 0x00000010 in 0x111a2204", "refused and written"}},
    {"RefusedMemberWritten", seven_lanes() + lane(7) + lane(7, 0x87), {}, dq, refused,
     "{0,1,2,3,4,5,6,200}", {"refused and written"}},
    {"MemberLeftOut", lane(0) + lane(0, 0x85), {}, dq, accepted, "5", {"accepted and not written"}},
    {"ListOfTheWrongLengthWithAnAccess", lane(0), {}, dq, refused, "{1,2,3}",
     {"a list of the wrong length touched the hardware: {1,2,3}"}},
};

const row in_files[] = {
    {"NumberWritten", {}, {{rdqs_file, "255"}}, rdqs, accepted, "300"},
    {"NumberShown", {}, {}, rdqs, accepted, "40", {}, true},
    {"VoltageWritten", {}, {{voltage, "950000"}}, cpu, accepted, "95%"},
    {"StepWithASignOfItsOwn", {}, {{rdqs_file, "-10"}}, rdqs, accepted, "+-50"},
    {"RegulatorsException", {}, {}, cpu, outcome::invalid_argument, "%"},
    {"RegulatorsOtherException", {}, {}, cpu, outcome::out_of_range, "1e999"},
    {"NoPlainNumber", {}, {{rdqs_file, "050\n"}}, rdqs, accepted, "50",
     {"not a plain number was written: 050\n"}},
    {"FileGone", {}, {{rdqs_file, std::nullopt}}, rdqs, accepted, "50",
     {"not a plain number was written: (no file)"}},
    {"NumberBeyondTheLimits", {}, {{rdqs_file, "256"}}, rdqs, accepted, "+300",
     {"beyond the limits of the file: 256"}},
    {"RefusedNumberWritten", {}, {{rdqs_file, "50"}}, rdqs, refused, "50", {"changed: " + rdqs_file}},
    {"FileWrittenWhileReading", {}, {{rdqs_file, "40\n"}}, rdqs, accepted, "40",
     {"changed: " + rdqs_file}, true},
    {"AnotherFileChanged", {}, {{rdqs_file, "50"}, {cpu_folder + "/max_microvolts", "2000000"}},
     rdqs, accepted, "50", {"changed: " + cpu_folder + "/max_microvolts"}},
    {"FileChangedByARegister", {{ddra}, {ddra, 0x40eb02b1}}, {{rdqs_file, "50"}}, "orlin-ddra::odt",
     accepted, "120", {"changed: " + rdqs_file}},
    {"RegisterTouchedByAFile", {{ddra}}, {}, rdqs, refused, "5",
     {"not a register of the property: 0x18428120"}},
    {"VoltageBeyondTheLimits", {}, {{voltage, "1310000"}}, cpu, accepted, "1310000",
     {"beyond the limits of the regulator: 1310000"}},
    {"VoltageBetweenTheSteps", {}, {{voltage, "1005000"}}, cpu, accepted, "1005000",
     {"no multiple of 10000 microvolts: 1005000"}},
    {"AnotherNumberShown", {}, {}, rdqs, accepted, "41", {"shown: 41, held: 40"}, true},
    {"NoPlainNumberShown", {}, {}, cpu, accepted, "0xf4240",
     {"shown is no plain number: 0xf4240"}, true},
    {"FilesException", {}, {}, rdqs, outcome::invalid_argument, "abc",
     {"std::invalid_argument from a property that is no regulator"}},
    {"FilesOtherException", {}, {}, rdqs, outcome::out_of_range, "99999999999",
     {"std::out_of_range where no number is out of range"}},
};
// clang-format on

std::string name_of(const testing::TestParamInfo<row>& r) {
    return r.param.name;
}

INSTANTIATE_TEST_SUITE_P(Registers, Checker, testing::ValuesIn(in_registers), name_of);
INSTANTIATE_TEST_SUITE_P(Files, Checker, testing::ValuesIn(in_files), name_of);

TEST(CheckerOfSteps, FindsOneThatDoesNotLeadBack) {
    const board_files files(file_contents{});
    const memory_board board(at_power_on());
    invariant_checker checker(board, files);
    checker.check_round_trip("6", "6", "+3");
    checker.check_round_trip("6", "7", "+3");
    EXPECT_EQ(checker.violations(), findings{"6 stepped by +3 and back is 7"});
}

} // namespace checker_test
