#include "checker_fixture.hpp"
#include "support/text_file.hpp"

namespace fuzz {
namespace file_rules_test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

const std::string rdqs_path = "/sys/kernel/debug/mmc0/rdqs";
const std::string regulator_path = "/sys/class/regulator/regulator.1";

/** The rdqs file with 40 in it, and a regulator at 1000000 between 800000 and 1300000. */
class FileRules : public checker_fixture {
protected:
    FileRules()
        : checker_fixture({{rdqs_path, "40"},
                           {regulator_path + "/microvolts", "1000000\n"},
                           {regulator_path + "/min_microvolts", "800000\n"},
                           {regulator_path + "/max_microvolts", "1300000\n"}}) {}

    void write(const std::string& board_path, const std::string& text) const {
        write_text(files.path(board_path), text);
    }

    const property_target& rdqs = target("mmc::rdqs");
    const property_target& cpu = target("cpu_regulator::microvolts");
    const property_target& odt = target("orlin-ddra::odt");
};

TEST_F(FileRules, PlainNumberWithinTheLimitsIsRight) {
    write(rdqs_path, "255");
    checker.check_set(rdqs, outcome::accepted, "300");
    checker.check_get(rdqs, outcome::accepted, "255", false);
    write(regulator_path + "/microvolts", "950000");
    checker.check_set(cpu, outcome::accepted, "95%");
    checker.check_get(cpu, outcome::accepted, "950000", true);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(FileRules, NumberThatIsNotPlainIsFound) {
    write(rdqs_path, "050\n");
    checker.check_set(rdqs, outcome::accepted, "50");
    EXPECT_THAT(found(), ElementsAre("not a plain number was written: 050\n"));
}

TEST_F(FileRules, FileThatVanishesIsFound) {
    std::filesystem::remove(files.path(rdqs_path));
    checker.check_set(rdqs, outcome::accepted, "50");
    EXPECT_THAT(found(), ElementsAre("not a plain number was written: (no file)"));
}

TEST_F(FileRules, NumberBeyondTheLimitsIsFound) {
    write(rdqs_path, "256");
    checker.check_set(rdqs, outcome::accepted, "+300");
    EXPECT_THAT(found(), ElementsAre("beyond the limits of the file: 256"));
}

TEST_F(FileRules, StepWithASignOfItsOwnMayPassALimit) {
    write(rdqs_path, "-10");
    checker.check_set(rdqs, outcome::accepted, "+-50");
    write(rdqs_path, "-9");
    checker.check_set(rdqs, outcome::accepted, "+1");
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(FileRules, RefusedValueThatIsWrittenIsFound) {
    write(rdqs_path, "50");
    checker.check_set(rdqs, outcome::refused, "50");
    EXPECT_THAT(found(), ElementsAre("changed: " + rdqs_path));
}

TEST_F(FileRules, WriteWhileReadingIsFound) {
    write(rdqs_path, "40\n");
    checker.check_get(rdqs, outcome::accepted, "40", false);
    EXPECT_THAT(found(), ElementsAre("changed: " + rdqs_path));
}

TEST_F(FileRules, ChangeOfAnotherFileIsFound) {
    write(rdqs_path, "50");
    write(regulator_path + "/max_microvolts", "2000000");
    checker.check_set(rdqs, outcome::accepted, "50");
    EXPECT_THAT(found(), ElementsAre("changed: " + regulator_path + "/max_microvolts"));
}

TEST_F(FileRules, FileThatARegisterPropertyChangesIsFound) {
    board.read(0x18428120);
    board.write(0x18428120, 0x40eb02b1);
    write(rdqs_path, "50");
    checker.check_set(odt, outcome::accepted, "120");
    EXPECT_THAT(found(), ElementsAre("changed: " + rdqs_path));
}

TEST_F(FileRules, RegisterThatAFilePropertyTouchesIsFound) {
    board.read(0x18428120);
    checker.check_set(rdqs, outcome::refused, "5");
    EXPECT_THAT(found(), ElementsAre("not a register of the property: 0x18428120"));
}

TEST_F(FileRules, VoltageBeyondTheLimitsIsFound) {
    write(regulator_path + "/microvolts", "1310000");
    checker.check_set(cpu, outcome::accepted, "1310000");
    EXPECT_THAT(found(), ElementsAre("beyond the limits of the regulator: 1310000"));
}

TEST_F(FileRules, VoltageBetweenTheStepsIsFound) {
    write(regulator_path + "/microvolts", "1005000");
    checker.check_set(cpu, outcome::accepted, "1005000");
    EXPECT_THAT(found(), ElementsAre("no multiple of 10000 microvolts: 1005000"));
}

TEST_F(FileRules, ShownNumberThatIsNotInTheFileIsFound) {
    checker.check_get(rdqs, outcome::accepted, "41", false);
    EXPECT_THAT(found(), ElementsAre("shown: 41, held: 40"));
}

TEST_F(FileRules, ShownTextThatIsNoNumberIsFound) {
    checker.check_get(cpu, outcome::accepted, "0xf4240", true);
    EXPECT_THAT(found(), ElementsAre("shown is no plain number: 0xf4240"));
}

TEST_F(FileRules, ExceptionsAreARegulatorsAlone) {
    checker.check_set(cpu, outcome::invalid_argument, "%");
    checker.check_set(cpu, outcome::out_of_range, "1e999");
    checker.check_get(cpu, outcome::invalid_argument, "", false);
    EXPECT_THAT(found(), IsEmpty());
    checker.check_set(rdqs, outcome::invalid_argument, "abc");
    checker.check_set(rdqs, outcome::out_of_range, "99999999999");
    EXPECT_THAT(found(),
                ElementsAre(HasSubstr("std::invalid_argument"), HasSubstr("std::out_of_range")));
}

} // namespace file_rules_test
} // namespace fuzz
