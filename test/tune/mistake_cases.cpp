#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

namespace {

std::vector<std::string> best_of(std::size_t logs) {
    std::vector<std::string> args(1 + logs, "log");
    args.front() = "best";
    return args;
}

} // namespace

const std::vector<tune_case> mistake_cases = {
    {.name = "MoreLogsThanCanBeCounted",
     .args = best_of(256),
     .err = "usage: brisel-tune best LOG...\n",
     .status = 2},
    {.name = "LineOfAMegabyte",
     .args = {"apply", tuning_file},
     .tuning = "mac-tx::delay = " + std::string(1 << 20, '1') + "\n",
     .err = "TUNING:1: '1111111111111111111111111111111111111111...' is no value of mac-tx::delay, "
            "which takes 0 to 15\nnothing was written\n",
     .status = 2},
    {.name = "NoCommand", .err = "no command; see brisel-tune --help\n", .status = 2},
    {.name = "UnknownCommand",
     .args = {"lost"},
     .err = "no such command: 'lost'; see brisel-tune --help\n",
     .status = 2},
    {.name = "UnknownOption",
     .args = {"get", "--jason", "mac"},
     .err = "unknown option: '--jason'\n",
     .status = 2},
    {.name = "OptionWithoutItsArgument",
     .args = {"save", "mac", "-o"},
     .err = "option without its argument: '-o'\n",
     .status = 2},
    {.name = "LineBreakInAnArgument",
     .args = {"set", "mac-tx::delay=4\nmac-rx::delay=5"},
     .err = "a line break in 'mac-tx::delay=4'\nnothing was written\n",
     .status = 2},
    {.name = "WaitOfNothing",
     .args = {"get", "--wait", "", "mac"},
     .err = "--wait takes a number of seconds, not ''\n",
     .status = 2},
    {.name = "WaitOfAges",
     .args = {"get", "--wait", "1e10", "mac"},
     .err = "--wait takes a number of seconds, not '1e10'\n",
     .status = 2},
    {.name = "GroupInAFile",
     .args = {"apply", tuning_file},
     .tuning = "mac = 1\n",
     .err = "TUNING:1: 'mac' is a group: name one of its properties\nnothing was written\n",
     .status = 2},
    {.name = "EveryMistakeOfAFile",
     .args = {"apply", tuning_file},
     .tuning = "MAC-tx::delay = 1\nmac-rx::delay = 16\n\x1b[2Jm\xfc\nmac-tx::delay = 4\n"
               "mac-tx::delay = 5\npcie-link::state-ro = 1\n",
     .err = "TUNING:1: no property: 'MAC-tx::delay'; near are mac-tx::delay, mac-rx::delay and "
            "i2c0-delay::scl-delay\n"
            "TUNING:2: '16' is no value of mac-rx::delay, which takes 0 to 15\n"
            "TUNING:3: '\\x1b[2Jm\\xfc' is not NAME = VALUE\n"
            "TUNING:5: mac-tx::delay is named at TUNING:4\n"
            "nothing was written\n",
     .status = 2},
    {.name = "TenMistakesAtMost",
     .args = {"apply", tuning_file},
     .tuning = "x\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\nx\n",
     .err = "TUNING:1: 'x' is not NAME = VALUE\nTUNING:2: 'x' is not NAME = VALUE\n"
            "TUNING:3: 'x' is not NAME = VALUE\nTUNING:4: 'x' is not NAME = VALUE\n"
            "TUNING:5: 'x' is not NAME = VALUE\nTUNING:6: 'x' is not NAME = VALUE\n"
            "TUNING:7: 'x' is not NAME = VALUE\nTUNING:8: 'x' is not NAME = VALUE\n"
            "TUNING:9: 'x' is not NAME = VALUE\nTUNING:10: 'x' is not NAME = VALUE\n"
            "and 2 more\nnothing was written\n",
     .status = 2},
    {.name = "LongTextIsCut",
     .args = {"set", std::string(41, 'x')},
     .err = "argument:1: '" + std::string(40, 'x') +
            "...' is not NAME = VALUE\n"
            "nothing was written\n",
     .status = 2},
    {.name = "UnknownOptionAmongOthers",
     .args = {"apply", "-nz", "file"},
     .err = "unknown option: '-z'\n",
     .status = 2},
    {.name = "OptionWithAnArgumentThatItDoesNotTake",
     .args = {"list", "--json=1"},
     .err = "unknown option: '--json=1'\n",
     .status = 2},
    {.name = "UnknownNameMayBeNearAGroup",
     .args = {"get", "EHCL"},
     .err = "no property, group or pattern: 'EHCL'; near are ehci, ehci0-phy::tx-fsls and "
            "ehci1-phy::tx-fsls\n",
     .status = 2},
    {.name = "UnknownNameMayBeTheStartOfNearOnes",
     .args = {"get", "i2c1-dleay"},
     .err = "no property, group or pattern: 'i2c1-dleay'; near are i2c1-delay::scl-delay, "
            "i2c1-delay::sda-delay and i2c0-delay::scl-delay\n",
     .status = 2},
    {.name = "NegativeWait",
     .args = {"get", "--wait", "-1", "mac"},
     .err = "--wait takes a number of seconds, not '-1'\n",
     .status = 2},
    {.name = "TooManyOperands",
     .args = {"diff", "a", "b", "c"},
     .err = "usage: brisel-tune diff FILE [FILE]\n",
     .status = 2},
    {.name = "OptionOfAnotherCommand",
     .args = {"get", "--json", "mac"},
     .err = "usage: brisel-tune get NAME...\n",
     .status = 2},
    {.name = "TooFewOperands",
     .args = {"get"},
     .err = "usage: brisel-tune get NAME...\n",
     .status = 2},
    {.name = "SaveOfEverythingAndMore",
     .args = {"save", "--all", "mac"},
     .err = "save takes either --all or names\n",
     .status = 2},
    {.name = "WaitWithoutANumber",
     .args = {"get", "--wait", "1s", "mac"},
     .err = "--wait takes a number of seconds, not '1s'\n",
     .status = 2},
    {.name = "UnknownNameIsOfferedTheNearestOnes",
     .args = {"get", "mac-tx::dealy"},
     .err = "no property, group or pattern: 'mac-tx::dealy'; near are mac-tx::delay, mac-rx::delay "
            "and mmc::rdqs\n",
     .status = 2},
    {.name = "ValueOutOfRange",
     .args = {"set", "mac-tx::delay=4", "mac-rx::delay=16"},
     .err = "argument:2: '16' is no value of mac-rx::delay, which takes 0 to 15\nnothing was "
            "written\n",
     .status = 2},
    {.name = "MappedValueThatIsNoKey",
     .args = {"set", "orlin-ddra::odt=4"},
     .err = "argument:1: '4' is no value of orlin-ddra::odt, which takes 0, 40, 60, 120, or raw:N "
            "for a code that none of these has, 0 to 15\nnothing was written\n",
     .status = 2},
    {.name = "RawCodeThatAKeyStandsFor",
     .args = {"set", "orlin-ddra::odt=raw:4"},
     .err = "argument:1: 'raw:4' is no value of orlin-ddra::odt, which takes 0, 40, 60, 120, or "
            "raw:N for a code that none of these has, 0 to 15\nnothing was written\n",
     .status = 2},
    {.name = "DelayTooLarge",
     .args = {"set", "pelune-ddr-read1::dq5=d+64"},
     .err =
         "argument:1: 'd+64' is no value of pelune-ddr-read1::dq5, which takes 0 to 127, d-63 to "
         "d+63\nnothing was written\n",
     .status = 2},
    {.name = "StepIsNoValue",
     .args = {"apply", tuning_file},
     .tuning = "\nmac-tx::delay = +1\n",
     .err = "TUNING:2: '+1' is no value of mac-tx::delay, which takes 0 to 15; a step has no place "
            "here\nnothing was written\n",
     .status = 2},
    {.name = "TextBehindTheNumber",
     .args = {"set", "mac-tx::delay=4x"},
     .err = "argument:1: '4x' is no value of mac-tx::delay, which takes 0 to 15\nnothing was "
            "written\n",
     .status = 2},
    {.name = "SetOfTooFewValues",
     .args = {"set", lanes + "={1,2}"},
     .err = "argument:1: pelune-ddr-read1::dq takes 8 values in braces, '{V,...}', in quotes on a "
            "command line; there are 2\nnothing was written\n",
     .status = 2},
    {.name = "SetOfTooManyValues",
     .args = {"set", lanes + "={1,2,3,4,5,6,7,8,9}"},
     .err = "argument:1: pelune-ddr-read1::dq takes 8 values in braces, '{V,...}', in quotes on a "
            "command line; there are 9\nnothing was written\n",
     .status = 2},
    {.name = "SetWithoutBraces",
     .args = {"set", lanes + "=1"},
     .err = "argument:1: pelune-ddr-read1::dq takes 8 values in braces, '{V,...}', in quotes on a "
            "command line; there are no braces\nnothing was written\n",
     .status = 2},
    {.name = "LineWithoutAValue",
     .args = {"apply", tuning_file},
     .tuning = "mac-tx::delay\n",
     .err = "TUNING:1: 'mac-tx::delay' is not NAME = VALUE\nnothing was written\n",
     .status = 2},
    {.name = "SamePropertyTwice",
     .args = {"apply", tuning_file},
     .tuning = "mac-tx::delay = 1\nmac-tx::delay = 1\n",
     .err = "TUNING:2: mac-tx::delay is named at TUNING:1\nnothing was written\n",
     .status = 2},
    {.name = "LaneBesideItsSet",
     .args = {"apply", tuning_file},
     .tuning = lanes + " = {1,2,3,4,5,6,7,8}\npelune-ddr-read1::dq5 = 6\n",
     .err = "TUNING:2: pelune-ddr-read1::dq5 shares bits with pelune-ddr-read1::dq at "
            "TUNING:1\nnothing was written\n",
     .status = 2},
    {.name = "ReadOnlyProperty",
     .args = {"set", "pcie-link::state-ro=3"},
     .err = "argument:1: pcie-link::state-ro is read-only\nnothing was written\n",
     .status = 2},
    {.name = "NulInALine",
     .args = {"apply", tuning_file},
     .tuning = std::string("mac-tx::delay\0 = 1\n", 19),
     .err = "TUNING:1: a NUL character\nnothing was written\n",
     .status = 2},
    {.name = "FolderIsNoTuning",
     .args = {"apply", "/tmp"},
     .err = "/tmp: Is a directory\nnothing was written\n",
     .status = 2},
    {.name = "MissingFile",
     .args = {"diff", "/no/such"},
     .err = "/no/such: No such file or directory\n",
     .status = 2},
    {.name = "VoltageOutsideTheLimitsOfTheRegulatorWritesNothing",
     .args = {"set", "mac-tx::delay=4", "cpu_regulator::microvolts=1300001"},
     .err = "argument:2: 1300001 is outside the limits of cpu_regulator::microvolts, 800000 to "
            "1300000\nnothing was written\n",
     .status = 2,
     .accesses = {"read 0x10040004 0x00200001"},
     .files = {{"/sys/class/regulator/regulator.1/microvolts", "1000000\n"}}},
    {.name = "VoltageOutsideTheLimitsIsAMistakeInADryRun",
     .args = {"apply", "-n", tuning_file},
     .tuning = "cpu_regulator::microvolts = 1300001\n",
     .err = "TUNING:1: 1300001 is outside the limits of cpu_regulator::microvolts, 800000 to "
            "1300000\nnothing was written\n",
     .status = 2},
    {.name = "VoltageBelowTheLimitsOfTheRegulatorWritesNothing",
     .args = {"set", "cpu_regulator::microvolts=799999"},
     .err = "argument:1: 799999 is outside the limits of cpu_regulator::microvolts, 800000 to "
            "1300000\nnothing was written\n",
     .status = 2},
    {.name = "SaveInAFolderThatIsNotThere",
     .args = {"save", "-o", "/no/such/file", "mmc"},
     .err = "/no/such/file: No such file or directory\n",
     .status = 2},
};
