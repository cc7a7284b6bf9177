// What the integer in a text file becomes: what a file may hold, and what a user may ask for.

#include <limits>
#include <ostream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property_file.hpp"
#include "support/hardware_test.hpp"
#include "support/shown.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

namespace property_file_values_test {

constexpr int int_min = std::numeric_limits<int>::min();
constexpr int int_max = std::numeric_limits<int>::max();

struct contents_row {
    const char* test_name;
    const char* contents;
    int min;
    int max;
    int value;
};

void PrintTo(const contents_row& row, std::ostream* out) {
    *out << '"' << row.contents << "\" in " << row.min << " ~ " << row.max;
}

class FileContents : public hardware_test, public testing::WithParamInterface<contents_row> {
protected:
    temp_dir m_dir;
};

TEST_P(FileContents, FirstWordCountsAndTheRangeDecides) {
    const auto& [test_name, contents, min, max, value] = GetParam();
    write_text(m_dir.file("value"), contents);
    property_file<int> p("p", m_dir.file("value"), min, max);
    const std::string number = std::to_string(value);
    if (min <= value && value <= max) {
        EXPECT_EQ(shown(p), number);
    } else {
        EXPECT_EQ(shown(p), "(none)");
        EXPECT_EQ(messages(), "current value " + number + " is not valid, valid range = " +
                                  std::to_string(min) + " ~ " + std::to_string(max) + "\n");
    }
    EXPECT_EQ(text_of(m_dir.file("value")), contents);
}

const contents_row contents_rows[] = {
    {"LowestLegal", "2", 2, 255, 2},
    {"HighestLegal", "255", 2, 255, 255},
    {"JustBelow", "1", 2, 255, 1},
    {"JustAbove", "256", 2, 255, 256},
    {"WithNewline", "100\n", 2, 255, 100},
    {"WithBlanksAround", " \t\n100 \n", 2, 255, 100},
    {"WithAFurtherWord", "100 7", 2, 255, 100},
    {"WithAUnit", "100ps", 2, 255, 100},
    {"WithAPlus", "+100", 2, 255, 100},
    {"WithLeadingZeros", "0100", 2, 255, 100},
    {"HexadecimalCountsAsZero", "0x64", 2, 255, 0},
    {"EmptyCountsAsZero", "", 2, 255, 0},
    {"BlankCountsAsZero", " \n", 2, 255, 0},
    {"NoNumberCountsAsZero", "disabled", 2, 255, 0},
    {"EmptyIsLegalWhereZeroIs", "", 0, 10, 0},
    {"NoNumberIsLegalWhereZeroIs", "on", -1, 1, 0},
    {"Negative", "-5", -10, -1, -5},
    {"NegativeOutOfRange", "-5", 2, 255, -5},
    {"TooLargeForTheType", "2147483648", 2, 255, int_max},
    {"TooSmallForTheType", "-2147483649", 2, 255, int_min},
    {"TooLargeFor64Bits", "99999999999999999999", 2, 255, int_max},
    {"TooSmallFor64Bits", "-99999999999999999999", 2, 255, int_min},
    {"LargestOfTheType", "2147483647", int_min, int_max, int_max},
    {"SmallestOfTheType", "-2147483648", int_min, int_max, int_min},
};

INSTANTIATE_TEST_SUITE_P(Property, FileContents, testing::ValuesIn(contents_rows),
                         [](const auto& row) { return row.param.test_name; });

struct request_row {
    const char* test_name;
    int value; ///< before
    const char* text;
    int after;
    const char* warning; ///< what follows "apply current value ", or none
    int min = 2;
    int max = 255;
};

void PrintTo(const request_row& row, std::ostream* out) {
    *out << row.value << " set to \"" << row.text << '"';
}

class FileRequest : public hardware_test, public testing::WithParamInterface<request_row> {
protected:
    temp_dir m_dir;
};

TEST_P(FileRequest, IsLimitedToTheRangeAndWritten) {
    const request_row& row = GetParam();
    const std::string path = m_dir.file("value");
    write_text(path, std::to_string(row.value));
    property_file<int> p("p", path, row.min, row.max);
    EXPECT_TRUE(p.set(row.text));
    const std::string warning = row.warning;
    EXPECT_EQ(messages(), warning.empty() ? "" : "apply current value " + warning + "\n");
    EXPECT_EQ(text_of(path), std::to_string(row.after));
    EXPECT_EQ(shown(p), std::to_string(row.after));
}

const request_row absolute_rows[] = {
    {"Plain", 100, "50", 50, ""},
    {"SameAsBefore", 100, "100", 100, ""},
    {"LowestLegal", 100, "2", 2, ""},
    {"HighestLegal", 100, "255", 255, ""},
    {"TooLow", 100, "1", 2, "100 to 1is limited to 2"},
    {"TooHigh", 40, "300", 255, "40 to 300is limited to 255"},
    {"JustTooHigh", 40, "256", 255, "40 to 256is limited to 255"},
    {"TrailingText", 100, "12abc", 12, ""},
    {"LeadingBlanks", 100, "  50", 50, ""},
    {"BlankBeforeAPlusIsAbsolute", 100, " +50", 50, ""},
    {"BlankBeforeAMinusIsAbsolute", 100, " -50", 2, "100 to  -50is limited to 2"},
    {"HexadecimalReadsAsZero", 100, "0x10", 2, "100 to 0x10is limited to 2"},
    {"NoNumberReadsAsZero", 100, "abc", 2, "100 to abcis limited to 2"},
    {"EmptyReadsAsZero", 100, "", 2, "100 to is limited to 2"},
    {"EmptyIsZeroWhereZeroIsLegal", 5, "", 0, "", 0, 10},
    {"LonePlusIsAbsolute", 100, "+", 2, "100 to +is limited to 2"},
    {"LoneMinusIsAbsolute", 100, "-", 2, "100 to -is limited to 2"},
    {"TooLargeForTheType", 100, "99999999999", 255, "100 to 99999999999is limited to 255"},
    {"TooLargeForTheTypeIsItsLargest", 0, "99999999999", int_max, "", int_min, int_max},
    {"TooLargeFor64BitsIsItsLargest", 0, "99999999999999999999", int_max, "", int_min, int_max},
    {"TooSmallFor64BitsIsItsSmallest", 0, " -99999999999999999999", int_min, "", int_min, int_max},
};

INSTANTIATE_TEST_SUITE_P(Absolute, FileRequest, testing::ValuesIn(absolute_rows),
                         [](const auto& row) { return row.param.test_name; });

const request_row relative_rows[] = {
    {"Up", 100, "+5", 105, ""},
    {"Down", 100, "-5", 95, ""},
    {"UpBeyond64Bits", 100, "+99999999999999999999", 255,
     "100 to +99999999999999999999is limited to 255"},
    {"DownBeyond64Bits", 100, "-99999999999999999999", 2,
     "100 to -99999999999999999999is limited to 2"},
    {"UpToTheLimit", 250, "+5", 255, ""},
    {"DownToTheLimit", 100, "-98", 2, ""},
    {"UpBeyondTheLimit", 250, "+10", 255, "250 to +10is limited to 255"},
    {"UpJustBeyondTheLimit", 250, "+6", 255, "250 to +6is limited to 255"},
    {"DownBeyondTheLimit", 250, "-300", 2, "250 to -300is limited to 2"},
    {"DownJustBeyondTheLimit", 100, "-99", 2, "100 to -99is limited to 2"},
    {"ByZero", 100, "+0", 100, ""},
    {"ByNoNumberIsByZero", 100, "-abc", 100, ""},
    {"ByHexadecimalIsByZero", 100, "+0x10", 100, ""},
    {"TrailingText", 100, "+5abc", 105, ""},
    {"BlankAfterTheSign", 100, "- 5", 95, ""},
    {"MinusMinusGoesUp", 100, "--5", 105, ""},
    {"PlusMinusGoesDown", 100, "+-5", 95, ""},
    {"MinusMinusMayLeaveTheRange", 100, "--200", 300, ""},
    {"PlusMinusMayLeaveTheRange", 100, "+-200", -100, ""},
    {"StepTooLargeForTheType", 100, "+99999999999", 255, "100 to +99999999999is limited to 255"},
    {"DownTooLargeForTheType", 100, "-99999999999", 2, "100 to -99999999999is limited to 2"},
    {"MinusMinusWraps", 100, "--2147483648", int_min + 100, ""},
    {"PlusMinusWraps", 100, "+-2147483648", int_min + 100, ""},
    // The room left to a bound of the whole type's range wraps to a negative number.
    {"RoomBelowWraps", 100, "-5", int_min, "100 to -5is limited to -2147483648", int_min, int_max},
    {"RoomAboveWraps", -100, "+5", int_max, "-100 to +5is limited to 2147483647", int_min, int_max},
    {"NegativeRange", -5, "-3", -8, "", -10, -1},
};

INSTANTIATE_TEST_SUITE_P(Relative, FileRequest, testing::ValuesIn(relative_rows),
                         [](const auto& row) { return row.param.test_name; });

} // namespace property_file_values_test
