#include "cli/cli_case.hpp"
#include "cli/texts.hpp"

namespace {

const std::string tx = "ebus-delay::tx";    // bits 4..0
const std::string scl = "orlin-ddra0::scl"; // a whole word

const std::string nines = std::string(20, '9');

/** A write to ebus-delay::tx; the word around the field is 0x00001500 all the time. */
cli_case tx_written(const std::string& name, const std::vector<std::string>& args,
                    std::uint32_t before, std::uint32_t after) {
    return writes(name, args, 0x11250cbc, 0x1500 + before, 0x1500 + after);
}

/** A write to a whole slice word, whose selector is 0. */
cli_case scl_written(const std::string& name, const std::vector<std::string>& args,
                     std::uint32_t after) {
    return writes(name, args, {0x1842813c, 0}, 0x11223344, after);
}

cli_case ended(const std::string& name, std::vector<std::string> args, const std::string& what) {
    return {.name = name,
            .args = std::move(args),
            .err = uncaught("out_of_range", what),
            .status = aborted};
}

} // namespace

const std::vector<cli_case> number_cases = {
    // Absolute, decimal mode.
    tx_written("DecimalIsRead", {tx, "31"}, 0x02, 0x1f),
    tx_written("LowerCasePrefixIsHexadecimal", {tx, "0x1F"}, 0x02, 0x1f),
    tx_written("TextBehindTheNumberIsIgnored", {tx, "12abc"}, 0x02, 0x0c),
    tx_written("ZeroIsWritten", {tx, "0"}, 0x1f, 0x00),
    scl_written("LargestWordIsWritten", {scl, "4294967295"}, 0xffffffff),
    scl_written("BlankBeforeASignMakesItAbsolute", {scl, " -1"}, 0xffffffff),
    scl_written("SixtyFourHexadecimalBitsKeepTheirLowBits", {scl, "0xffffffff12345678"},
                0x12345678),
    refuses("ValueThatDoesNotFitIsRefused", {tx, "32"}),
    refuses("EmptyValueIsRefusedSilently", {tx, ""}),
    refuses("LettersAreNoNumber", {tx, "abc"}, "failed to parse value abc\n"),
    refuses("LettersOfSeveralBytesAreShownAsTheyCame", {tx, "für 5"},
            "failed to parse value für 5\n"),
    ended("TwentyNinesEndTheRun", {tx, nines}, "stoll"),
    ended("SeventeenHexadecimalDigitsEndTheRun", {tx, "0x12345678123456789"}, "stoull"),

    // Absolute, hexadecimal mode.
    tx_written("HexadecimalModeReadsSixteen", {"-x", tx, "10"}, 0x02, 0x10),
    scl_written("HexadecimalModeReadsLetters", {"-x", scl, "abc"}, 0x00000abc),
    scl_written("HexadecimalModeReadsThirtyTwoBits", {"-x", scl, "DEADBEEF"}, 0xdeadbeef),
    refuses("HexadecimalModeRefusesOtherLetters", {"-x", tx, "xyz"}, "failed to parse value xyz\n"),
    ended("HexadecimalModeEndsTheRunBeyondSixtyFourBits", {"-x", tx, "12345678123456789"},
          "stoull"),

    // Steps.
    tx_written("PlusRaises", {tx, "+3"}, 0x04, 0x07),
    tx_written("MinusLowers", {tx, "-3"}, 0x04, 0x01),
    tx_written("DecimalStepDoesNotKnowThePrefix", {tx, "+0x10"}, 0x04, 0x04),
    tx_written("StepOfZeroWritesTheSameValue", {tx, "+0"}, 0x04, 0x04),
    tx_written("HexadecimalModeStepsByHexadecimal", {"-x", tx, "+10"}, 0x04, 0x14),
    tx_written("HexadecimalModeLowersBySixteen", {"-x", tx, "-10"}, 0x14, 0x04),
    tx_written("StepThatLandsOnALimitIsNotReported", {tx, "+27"}, 0x04, 0x1f),
    refuses("MinusAloneIsNoNumber", {tx, "-"}, "failed to parse value -\n"),
    ended("StepOfTwentyNinesEndsTheRun", {tx, "+" + nines}, "stoll"),
    ended("HexadecimalStepBeyondSixtyFourBitsEndsTheRun", {"-x", tx, "+12345678123456789"},
          "stoull"),
};
