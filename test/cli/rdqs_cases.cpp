#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

const std::string rdqs = "mmc::rdqs";

board_setup rdqs_holding(const std::string& text) {
    return board_setup().file(rdqs_file, text);
}

/** A write that takes the file from one text to another. */
cli_case rdqs_changed(const std::string& name, const std::string& value, const std::string& before,
                      const std::string& after, const std::string& message = "") {
    return {.name = name,
            .args = {rdqs, value},
            .board = rdqs_holding(before),
            .err = message + set_done(rdqs, value),
            .files = {{rdqs_file, after}}};
}

std::string limited(const std::string& current, const std::string& request,
                    const std::string& limit) {
    return "apply current value " + current + " to " + request + "is limited to " + limit + "\n";
}

/** A file whose value the property does not accept: it can be neither read nor written. */
cli_case invalid(const std::string& name, std::vector<std::string> args,
                 const std::string& contents, const std::string& message) {
    const bool write = args.size() > 1;
    return {.name = name,
            .args = args,
            .board = rdqs_holding(contents),
            .out = write ? "" : "\n",
            .err = message + (write ? set_failed(args[0], args[1]) : get_failed(args[0])),
            .status = write ? 245 : 246,
            .files = {{rdqs_file, contents}}};
}

std::string not_valid(const std::string& value) {
    return "current value " + value + " is not valid, valid range = 2 ~ 255\n";
}

} // namespace

const std::vector<cli_case> rdqs_cases = {
    shows("RdqsIsRead", {rdqs}, rdqs_holding("105\n"), "105"),
    shows("RdqsIsDecimalInHexadecimalMode", {"-x", rdqs}, rdqs_holding("105\n"), "105"),

    rdqs_changed("RdqsIsWrittenWithoutANewline", "105", "40\n", "105"),
    rdqs_changed("RdqsStepsUp", "+5", "100\n", "105"),
    rdqs_changed("RdqsStepsDown", "-5", "100\n", "95"),
    rdqs_changed("RdqsStepAboveIsLimited", "+10", "250\n", "255", limited("250", "+10", "255")),
    rdqs_changed("RdqsStepBelowIsLimited", "-300", "250\n", "2", limited("250", "-300", "2")),
    rdqs_changed("RdqsAboveTheRangeIsLimited", "300", "40\n", "255", limited("40", "300", "255")),
    rdqs_changed("RdqsWithoutANumberCountsAsZero", "abc", "40\n", "2", limited("40", "abc", "2")),
    rdqs_changed("RdqsLoneMinusIsAbsoluteAndZero", "-", "40\n", "2", limited("40", "-", "2")),
    rdqs_changed("RdqsMinusMinusRaisesAndMayLeaveTheRange", "--5", "253\n", "258"),
    rdqs_changed("RdqsPlusMinusLowersAndMayLeaveTheRange", "+-50", "40\n", "-10"),
    rdqs_changed("RdqsPlusMinusTheLowestNumberWraps", "+-2147483648", "40\n", "-2147483608"),
    rdqs_changed("RdqsNumberBeyondThirtyTwoBitsSaturates", "99999999999", "40\n", "255",
                 limited("40", "99999999999", "255")),
    rdqs_changed("RdqsStepBeyondThirtyTwoBitsSaturates", "+99999999999", "40\n", "255",
                 limited("40", "+99999999999", "255")),

    {.name = "RdqsHexadecimalModeStillReadsDecimal",
     .args = {"-x", rdqs, "10"},
     .board = rdqs_holding("40\n"),
     .err = set_done(rdqs, "10"),
     .files = {{rdqs_file, "10"}}},

    invalid("RdqsAboveItsRangeCannotBeRead", {rdqs}, "300\n", not_valid("300")),
    invalid("RdqsAboveItsRangeCannotBeWritten", {rdqs, "40"}, "300\n", not_valid("300")),
    invalid("RdqsFileWithoutANumberCountsAsZero", {rdqs}, "garbage\n", not_valid("0")),
    invalid("RdqsFileBeyondThirtyTwoBitsSaturates", {rdqs}, "99999999999\n",
            not_valid("2147483647")),
    {.name = "RdqsMissingFileCannotBeRead",
     .args = {rdqs},
     .board = board_setup().fault("no-open " + rdqs_file),
     .out = "\n",
     .err = "open " + rdqs_file + " failed.\n" + get_failed(rdqs),
     .status = 246},
    {.name = "RdqsMissingFileCannotBeWritten",
     .args = {rdqs, "40"},
     .board = rdqs_holding("40\n").fault("no-open " + rdqs_file),
     .err = "open " + rdqs_file + " failed.\n" + set_failed(rdqs, "40"),
     .status = 245,
     .files = {{rdqs_file, "40\n"}}},

    {.name = "RdqsFileThatIsNotWritableFailsTheWrite",
     .args = {rdqs, "50"},
     .board = rdqs_holding("40\n").fault("no-write " + rdqs_file),
     .err = "open " + rdqs_file + " failed.\n" + set_failed(rdqs, "50"),
     .status = 245,
     .files = {{rdqs_file, "40\n"}}},
    {.name = "RdqsOutOfRangeIsReportedWhateverIsDone",
     .args = {"-h"},
     .board = rdqs_holding("300\n"),
     .out = usage,
     .err = not_valid("300"),
     .status = 254},
};
