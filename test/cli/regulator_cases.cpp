#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

const std::string cpu = "cpu_regulator::microvolts";
const std::string directory = "/sys/class/regulator/regulator.1";
const std::string voltage_file = directory + "/microvolts";

/** The CPU's regulator gives this voltage, within 800000 to 1300000 microvolts. */
board_setup at(const std::string& voltage) {
    return board_setup()
        .file(voltage_file, voltage + "\n")
        .file(directory + "/min_microvolts", "800000\n")
        .file(directory + "/max_microvolts", "1300000\n");
}

board_setup within(const std::string& min, const std::string& max) {
    return at("1000000")
        .file(directory + "/min_microvolts", min + "\n")
        .file(directory + "/max_microvolts", max + "\n");
}

cli_case voltage_changed(const std::string& name, const std::string& value, board_setup setup,
                         const std::string& after) {
    return {.name = name,
            .args = {cpu, value},
            .board = std::move(setup),
            .err = set_done(cpu, value),
            .files = {{voltage_file, after}}};
}

/** A value that is refused at 1000000 microvolts. */
cli_case voltage_refused(const std::string& name, const std::string& value,
                         const std::string& message) {
    return {.name = name,
            .args = {cpu, value},
            .board = at("1000000"),
            .err = message + "\n" + set_failed(cpu, value),
            .status = 245,
            .files = {{voltage_file, "1000000\n"}}};
}

/** A value that ends the run at 1000000 microvolts. */
cli_case voltage_ended(const std::string& name, const std::string& value, const std::string& type) {
    return {.name = name,
            .args = {cpu, value},
            .board = at("1000000"),
            .err = uncaught(type, "stod"),
            .status = aborted,
            .files = {{voltage_file, "1000000\n"}}};
}

/** A board on which the regulator can be neither read nor set, without a message. */
cli_case unreadable(const std::string& name, board_setup setup) {
    return {.name = name,
            .args = {cpu},
            .board = std::move(setup),
            .out = "\n",
            .err = get_failed(cpu),
            .status = 246};
}

cli_case not_a_number(const std::string& name, board_setup setup, const std::string& type) {
    return {.name = name,
            .args = {cpu},
            .board = std::move(setup),
            .err = uncaught(type, "stol"),
            .status = aborted};
}

cli_case read_at(const std::string& name, const std::string& property, const std::string& path) {
    return shows(name, {property}, board_setup().file(path + "/microvolts", "1012500\n"),
                 "1012500");
}

} // namespace

const std::vector<cli_case> regulator_cases = {
    read_at("CpuRegulatorIsTheFirst", cpu, directory),
    read_at("GpuRegulatorIsTheSecond", "gpu_regulator::microvolts",
            "/sys/class/regulator/regulator.2"),
    read_at("PeluneRegulatorIsTheThird", "pelune_regulator::microvolts",
            "/sys/class/regulator/regulator.3"),
    read_at("CoreRegulatorIsTheFourth", "core_regulator::microvolts",
            "/sys/class/regulator/regulator.4"),
    shows("VoltageIsDecimalInHexadecimalMode", {"-x", cpu}, at("1100000"), "1100000"),

    voltage_changed("VoltageIsWrittenWithoutANewline", "1000000", at("900000"), "1000000"),
    voltage_changed("VoltageIsRaisedToAWholeStep", "1005000", at("900000"), "1010000"),
    voltage_changed("OneMicrovoltIsRaisedToAWholeStep", "1000001", at("900000"), "1010000"),
    voltage_changed("FractionOfAMicrovoltIsRaisedToAWholeStep", "1000000.5", at("900000"),
                    "1010000"),
    voltage_changed("VoltageMayHaveAnExponent", "1.25e6", at("900000"), "1250000"),
    voltage_changed("VoltageIsReadAsStodReadsHexadecimal", "0xf4240", at("900000"), "1000000"),
    voltage_changed("TextBehindTheVoltageIsIgnored", "1000000uV", at("900000"), "1000000"),
    voltage_changed("SignIsPartOfTheVoltageAndNoStep", "+1000000", at("900000"), "1000000"),
    voltage_changed("LowestVoltageIsAccepted", "800000", at("900000"), "800000"),
    voltage_changed("HighestVoltageIsAccepted", "1300000", at("900000"), "1300000"),

    {.name = "HexadecimalModeStillReadsDecimal",
     .args = {"-x", cpu, "1200000"},
     .board = at("900000"),
     .err = set_done(cpu, "1200000"),
     .files = {{voltage_file, "1200000"}}},

    voltage_changed("NinetyFivePercent", "95%", at("1000000"), "950000"),
    voltage_changed("NinetyThreePercentIsTheLeast", "93%", at("1000000"), "930000"),
    voltage_changed("HundredAndSevenPercentIsExact", "107%", at("1000000"), "1070000"),
    voltage_changed("PercentageIsOfThePresentVoltage", "95%", at("950000"), "910000"),
    voltage_changed("FractionOfAPercentIsRaisedToAWholeStep", "100.1%", at("1000000"), "1010000"),

    voltage_refused("NinetyTwoPercentIsOutOfRange", "92%", "percentage 92%: out of range"),
    voltage_refused("PercentageIsShownWithoutTrailingZeros", "107.50%",
                    "percentage 107.5%: out of range"),
    voltage_refused("PercentageIsShownWithSixDigits", "92.123456789%",
                    "percentage 92.1235%: out of range"),
    voltage_refused("LargePercentageIsShownWithAnExponent", "12345678%",
                    "percentage 1.23457e+07%: out of range"),
    voltage_refused("NegativePercentageIsOutOfRange", "-5%", "percentage -5%: out of range"),
    voltage_refused("InfinitePercentageIsOutOfRange", "inf%", "percentage inf%: out of range"),
    voltage_refused("PercentageThatIsNoNumberBecomesZero", "nan%",
                    "0mv: out of range(800000-1300000)"),
    voltage_refused("VoltageAboveTheLimits", "2000000", "2000000mv: out of range(800000-1300000)"),
    voltage_refused("VoltageBelowTheLimits", "790000", "790000mv: out of range(800000-1300000)"),
    voltage_refused("VoltageRaisedAboveTheLimits", "1300001",
                    "1310000mv: out of range(800000-1300000)"),
    voltage_refused("NegativeVoltageBecomesZero", "-1000000", "0mv: out of range(800000-1300000)"),
    voltage_refused("VoltageBeyondThirtyTwoBitsSaturates", "1e12",
                    "4294967295mv: out of range(800000-1300000)"),
    voltage_refused("InfiniteVoltageSaturates", "inf",
                    "4294967295mv: out of range(800000-1300000)"),
    voltage_refused("VoltageThatIsNoNumberBecomesZero", "nan", "0mv: out of range(800000-1300000)"),

    voltage_ended("PercentSignAloneIsAVoltageWithoutANumber", "%", "invalid_argument"),
    voltage_ended("LettersAreNoVoltage", "abc", "invalid_argument"),
    voltage_ended("LettersAreNoPercentage", "abc%", "invalid_argument"),
    voltage_ended("EmptyTextIsNoVoltage", "", "invalid_argument"),
    voltage_ended("VoltageBeyondADoubleEndsTheRun", "1e999", "out_of_range"),
    voltage_ended("PercentageBeyondADoubleEndsTheRun", "1e999%", "out_of_range"),

    unreadable("MissingRegulatorCannotBeRead", at("1000000").fault("no-open " + directory)),
    unreadable("MissingVoltageCannotBeRead", at("1000000").fault("no-open " + voltage_file)),
    unreadable("MissingLowerLimitCannotBeRead",
               at("1000000").fault("no-open " + directory + "/min_microvolts")),
    unreadable("MissingUpperLimitCannotBeRead",
               at("1000000").fault("no-open " + directory + "/max_microvolts")),
    unreadable("NegativeVoltageCannotBeRead", at("-5")),
    {.name = "RegulatorWithoutALowerLimitCannotBeSet",
     .args = {cpu, "1000000"},
     .board = at("1000000").fault("no-open " + directory + "/min_microvolts"),
     .err = set_failed(cpu, "1000000"),
     .status = 245,
     .files = {{voltage_file, "1000000\n"}}},
    {.name = "RegulatorWithAnUpperLimitThatIsNoNumberEndsASet",
     .args = {cpu, "1000000"},
     .board = within("800000", "garbage"),
     .err = uncaught("invalid_argument", "stol"),
     .status = aborted,
     .files = {{voltage_file, "1000000\n"}}},
    {.name = "MissingRegulatorCannotBeSet",
     .args = {cpu, "1000000"},
     .board = at("1000000").fault("no-open " + directory),
     .err = set_failed(cpu, "1000000"),
     .status = 245},
    {.name = "NegativeVoltageCannotBeSet",
     .args = {cpu, "1000000"},
     .board = at("-5"),
     .err = set_failed(cpu, "1000000"),
     .status = 245,
     .files = {{voltage_file, "-5\n"}}},
    shows("MissingRegulatorCostsNothingUntilItIsUsed", {"gpu_regulator::microvolts"},
          board_setup().fault("no-open " + directory), "950000"),

    not_a_number("EmptyVoltageFileEndsTheRun", at(""), "invalid_argument"),
    not_a_number("VoltageFileWithoutANumberEndsTheRun", at("garbage"), "invalid_argument"),
    not_a_number("LimitWithoutANumberEndsTheRun", within("garbage", "1300000"), "invalid_argument"),
    not_a_number("VoltageFileBeyondThirtyTwoBitsEndsTheRun", at("2147483648"), "out_of_range"),
    not_a_number("VoltageFileFarBelowThirtyTwoBitsEndsTheRun", at("-2147483649"), "out_of_range"),
    not_a_number("VoltageFileBeyondSixtyFourBitsEndsTheRun", at("99999999999999999999"),
                 "out_of_range"),
    not_a_number("LimitBeyondThirtyTwoBitsEndsTheRun", within("800000", "2147483648"),
                 "out_of_range"),
    shows("LargestVoltageOfThirtyTwoBitsIsRead", {cpu}, at("2147483647"), "2147483647"),
    shows("TextBehindTheVoltageInTheFileIsIgnored", {cpu}, at("1000000uV 5"), "1000000"),

    voltage_changed("NegativeUpperLimitIsKeptAsTheUnsignedNumberOfItsBits", "3000000000",
                    within("800000", "-1"), "-1294967296"),
    {.name = "NegativeLowerLimitIsKeptAsTheUnsignedNumberOfItsBits",
     .args = {cpu, "1000000"},
     .board = within("-1", "1300000"),
     .err = "1000000mv: out of range(4294967295-1300000)\n" + set_failed(cpu, "1000000"),
     .status = 245,
     .files = {{voltage_file, "1000000\n"}}},

    {.name = "VoltageFileThatIsNotWritableIsNotNoticed",
     .args = {cpu, "1100000"},
     .board = at("1000000").fault("no-write " + voltage_file),
     .err = set_done(cpu, "1100000"),
     .files = {{voltage_file, "1000000\n"}}},
};
