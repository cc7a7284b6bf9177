#include "catalogue/table.hpp"
#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

const std::string rdqs_missing = "open " + rdqs_file + " failed.\n";

board_setup sda_is_3() {
    return board_setup().word(0x10090110, 0x00000003);
}

const std::vector<std::string> sda_is_read = {"read 0x10090110 0x00000003"};

/** What -l prints. */
std::string listing() {
    std::string text, group;
    for (const hardware_property& p : every_property()) {
        if (p.group != group) {
            group = p.group;
            text += group + " :\n";
        }
        text += "\t" + p.name + " : " + p.help + "\n";
    }
    return text;
}

} // namespace

const std::vector<cli_case> driver_cases = {
    {.name = "NoWordPrintsTheUsage", .out = usage, .status = 254},
    {.name = "HelpPrintsTheUsage", .args = {"-h"}, .out = usage, .status = 254},
    {.name = "HelpIgnoresAnOperand", .args = {"-h", sda}, .out = usage, .status = 254},
    {.name = "HelpIsFoundBehindAnOperand", .args = {sda, "-h"}, .out = usage, .status = 254},
    {.name = "HelpIsFoundInsideAWord", .args = {"-hl"}, .out = usage, .status = 254},
    {.name = "InteractiveModeIsNotSupported",
     .args = {"-i"},
     .out = "Not supported yet.\n",
     .status = 253},

    {.name = "ListShowsEveryGroupAndPropertyAndReadsNothing", .args = {"-l"}, .out = listing()},
    {.name = "ListNeedsNoDeviceNode",
     .args = {"-l"},
     .board = board_setup().fault("no-open /dev/zeb_mem"),
     .out = listing()},
    {.name = "ListIgnoresTheHexadecimalOption", .args = {"-l", "-x"}, .out = listing()},
    {.name = "ListIgnoresOperands", .args = {"-l", sda, "5"}, .out = listing()},
    {.name = "ListIsFoundInsideAWord", .args = {"-lx"}, .out = listing()},

    {.name = "HexadecimalAloneShowsOptindAndTheUsage", .args = {"-x"}, .out = "..2\n" + usage},
    {.name = "HexadecimalThenListLooksTheSecondWordUp", .args = {"-x", "-l"}, .err = unknown},
    {.name = "HexadecimalBehindTheNameFindsNoOperand", .args = {sda, "-x"}, .out = "..3\n" + usage},
    {.name = "HexadecimalBetweenNameAndValueTakesTheValueAsName",
     .args = {sda, "-x", "5"},
     .err = unknown},
    {.name = "HexadecimalInsideAWordLooksThatWordUp", .args = {"-xl"}, .err = unknown},
    reads("HexadecimalShowsHexadecimal", {"-x", "i2c0-delay::scl-delay"}, 0x10090110, 0x000000c3,
          "0xc"),

    {.name = "UnknownOptionIsTakenAsTheName", .args = {"-z"}, .err = unknown},
    {.name = "UnknownOptionWithAValueIsTakenAsTheName", .args = {"-z", "5"}, .err = unknown},
    {.name = "LongOptionIsTakenAsTheName", .args = {"--help"}, .err = unknown},
    {.name = "TwoHyphensAreTakenAsTheName", .args = {"--", sda}, .err = unknown},
    {.name = "TwoHyphensBehindTheNameMoveInFrontOfIt", .args = {sda, "--"}, .err = unknown},
    {.name = "TwoHyphensBehindHexadecimalAreTakenAsTheName",
     .args = {"-x", "--", sda},
     .err = unknown},
    writes("NegativeNumberBehindTheNameIsTheValue", {sda, "-1"}, 0x10090110, 0x00000003,
           0x00000002),

    {.name = "RawReadPrintsTheValueAlone",
     .args = {"-r", sda},
     .board = sda_is_3(),
     .out = "3\n",
     .accesses = sda_is_read},
    {.name = "RawReadTakesTheNameInTheSameWord",
     .args = {"-r" + sda},
     .board = sda_is_3(),
     .out = "3\n",
     .accesses = sda_is_read},
    {.name = "RawReadIgnoresHexadecimal",
     .args = {"-r", "i2c0-delay::scl-delay", "-x"},
     .board = board_setup().word(0x10090110, 0x000000c3),
     .out = "12\n",
     .accesses = {"read 0x10090110 0x000000c3"}},
    {.name = "RawReadIgnoresAValue",
     .args = {"-r", sda, "5"},
     .board = sda_is_3(),
     .out = "3\n",
     .accesses = sda_is_read},
    {.name = "RawReadOfAnUnknownNameEndsWithZero", .args = {"-r", "no::such"}, .err = unknown},
    {.name = "RawReadThatFailsSaysThatThereIsNoSuchProperty",
     .args = {"-r", "orlin-ddra::odt"},
     .board = board_setup().word(0x18428120, 0x00000003),
     .err = unknown,
     .accesses = {"read 0x18428120 0x00000003"}},
    {.name = "RawReadWithoutItsArgumentIsTakenAsTheName", .args = {"-r"}, .err = unknown},

    reads("ReadPrintsTheValueAndAStatusLine", {sda}, 0x10090110, 0x00000003, "3"),
    {.name = "ReadOfAnUnknownNameEndsWithZero", .args = {"no::such"}, .err = unknown},
    {.name = "ReadOfAnEmptyNameEndsWithZero", .args = {""}, .err = unknown},
    {.name = "NamesMustMatchExactly", .args = {"i2c0-delay::sda"}, .err = unknown},
    {.name = "RegisterNameAloneIsNoProperty", .args = {"orlin-ddra"}, .err = unknown},
    {.name = "SliceHasNoSetOfLanes", .args = {"orlin-ddra0::dq"}, .err = unknown},
    {.name = "FailedReadPrintsAnEmptyLine",
     .args = {"orlin-ddra::odt"},
     .board = board_setup().word(0x18428120, 0x00000003),
     .out = "\n",
     .err = get_failed("orlin-ddra::odt"),
     .status = 246,
     .accesses = {"read 0x18428120 0x00000003"}},

    writes("WritePrintsAStatusLineAlone", {sda, "9"}, 0x10090110, 0x00000003, 0x00000009),
    {.name = "WriteIgnoresFurtherWords",
     .args = {sda, "9", "10"},
     .board = sda_is_3(),
     .err = set_done(sda, "9"),
     .accesses = {"read 0x10090110 0x00000003", "write 0x10090110 0x00000009",
                  "read 0x10090110 0x00000009"}},
    refuses("RefusedWriteTouchesNoHardware", {sda, "16"}),
    {.name = "WriteOfAnUnknownNameEndsWithZero", .args = {"no::such", "5"}, .err = unknown},

    {.name = "LockFileThatCannotBeOpened",
     .args = {sda},
     .board = board_setup().fault("no-open /tmp/brisel.lock EACCES"),
     .err = "Failed to open /tmp/brisel.lock\nFailed to lock!\n",
     .status = 255},
    {.name = "LockFileThatCannotBeOpenedStopsEvenHelp",
     .args = {"-h"},
     .board = board_setup().fault("no-open /tmp/brisel.lock EACCES"),
     .err = "Failed to open /tmp/brisel.lock\nFailed to lock!\n",
     .status = 255},
    {.name = "LockThatCannotBeTaken",
     .args = {sda},
     .board = board_setup().fault("no-lock /tmp/brisel.lock"),
     .err = "Failed to lock!\n",
     .status = 255},
    {.name = "MissingRdqsFileIsReportedBeforeTheLockFails",
     .args = {sda},
     .board = board_setup().fault("no-open " + rdqs_file).fault("no-open /tmp/brisel.lock EACCES"),
     .err = rdqs_missing + "Failed to open /tmp/brisel.lock\nFailed to lock!\n",
     .status = 255},
    {.name = "MissingRdqsFileIsReportedBeforeTheUsage",
     .args = {"-h"},
     .board = board_setup().fault("no-open " + rdqs_file),
     .out = usage,
     .err = rdqs_missing,
     .status = 254},
    {.name = "MissingRdqsFileIsReportedBeforeAStatusLine",
     .args = {sda},
     .board = sda_is_3().fault("no-open " + rdqs_file),
     .out = "3\n",
     .err = rdqs_missing + got(sda, "3"),
     .accesses = sda_is_read},
};
