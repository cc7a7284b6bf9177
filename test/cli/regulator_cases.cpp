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

cli_case voltage_changed(const std::string& name, const std::vector<std::string>& args,
                         board_setup setup, const std::string& after) {
    return {.name = name,
            .args = args,
            .board = std::move(setup),
            .err = set_done(cpu, args.back()),
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

cli_case not_a_number(const std::string& name, const std::string& voltage,
                      const std::string& type) {
    return {.name = name,
            .args = {cpu},
            .board = at(voltage),
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

    voltage_changed("VoltageIsWrittenWithoutANewline", {cpu, "1000000"}, at("900000"), "1000000"),
    voltage_changed("HexadecimalModeStillReadsDecimal", {"-x", cpu, "1200000"}, at("900000"),
                    "1200000"),
    voltage_changed("NinetyFivePercent", {cpu, "95%"}, at("1000000"), "950000"),
    voltage_changed("PercentageIsOfThePresentVoltage", {cpu, "95%"}, at("950000"), "910000"),
    voltage_changed("SignIsPartOfTheVoltageAndNoStep", {cpu, "+1000000"}, at("900000"), "1000000"),

    voltage_refused("NinetyTwoPercentIsOutOfRange", "92%", "percentage 92%: out of range"),
    voltage_refused("VoltageAboveTheLimits", "2000000", "2000000mv: out of range(800000-1300000)"),
    voltage_refused("NegativeVoltageBecomesZero", "-1000000", "0mv: out of range(800000-1300000)"),

    voltage_ended("LettersAreNoVoltage", "abc", "invalid_argument"),
    voltage_ended("EmptyTextIsNoVoltage", "", "invalid_argument"),
    voltage_ended("VoltageBeyondADoubleEndsTheRun", "1e999", "out_of_range"),

    unreadable("MissingRegulatorCannotBeRead", at("1000000").fault("no-open " + directory)),
    unreadable("NegativeVoltageCannotBeRead", at("-5")),
    {.name = "MissingRegulatorCannotBeSet",
     .args = {cpu, "1000000"},
     .board = at("1000000").fault("no-open " + directory),
     .err = set_failed(cpu, "1000000"),
     .status = 245},
    shows("MissingRegulatorCostsNothingUntilItIsUsed", {"gpu_regulator::microvolts"},
          board_setup().fault("no-open " + directory), "950000"),

    not_a_number("VoltageFileWithoutANumberEndsTheRun", "garbage", "invalid_argument"),
    not_a_number("VoltageFileBeyondThirtyTwoBitsEndsTheRun", "2147483648", "out_of_range"),

    {.name = "VoltageFileThatIsNotWritableIsNotNoticed",
     .args = {cpu, "1100000"},
     .board = at("1000000").fault("no-write " + voltage_file),
     .err = set_done(cpu, "1100000"),
     .files = {{voltage_file, "1000000\n"}}},
};
