// The texts that a register field's property reads and shows, in both number modes.

#include <ostream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/field_properties.hpp"
#include "support/shown.hpp"

namespace property_register_text_test {

using fake_memory::log;
using fake_memory::read;
using fake_memory::write;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr int decimal = 0;
constexpr int hexadecimal = 1;

struct number_row {
    const char* test_name;
    int mode;
    const char* text;
    unsigned int word; ///< what the field of 32 bits holds then; 100 before
};

void PrintTo(const number_row& row, std::ostream* out) {
    *out << '"' << row.text << "\" in mode " << row.mode;
}

class FieldText : public field_properties, public testing::WithParamInterface<number_row> {};

TEST_P(FieldText, IsReadAsTheNumber) {
    const auto& [test_name, mode, text, word] = GetParam();
    property::m_number_mode = mode;
    EXPECT_TRUE(set("wide::all", text));
    EXPECT_THAT(log, ElementsAre(read(wide, 100), write(wide, word), read(wide, word)));
}

const number_row absolute_rows[] = {
    {"Plain", decimal, "31", 31},
    {"LowerCasePrefix", decimal, "0x1F", 31},
    {"UpperCasePrefix", decimal, "0X1f", 31},
    {"StopsAtALetter", decimal, "1F", 1},
    {"TrailingText", decimal, "12abc", 12},
    {"LeadingBlanks", decimal, " \t7", 7},
    {"LeadingZeroIsNotOctal", decimal, "010", 10},
    {"BlankBeforeThePrefix", decimal, " 0x10", 0},
    {"PrefixAlone", decimal, "0x", 0},
    {"PrefixBeforeNoDigit", decimal, "0xg", 0},
    {"Largest", decimal, "4294967295", 0xffffffff},
    {"LowBitsOnly", decimal, "4294967297", 1},
    {"LargestSigned64", decimal, "9223372036854775807", 0xffffffff},
    {"PrefixedLowBitsOnly", decimal, "0x123456789", 0x23456789},
    {"PrefixedLargest64", decimal, "0xffffffffffffffff", 0xffffffff},
    {"BlankBeforeAMinus", decimal, " -1", 0xffffffff},
    {"BlankBeforeAPlus", decimal, " +1", 1},
    {"HexPlain", hexadecimal, "10", 16},
    {"HexPrefix", hexadecimal, "0x10", 16},
    {"HexUpperCasePrefix", hexadecimal, "0X1F", 31},
    {"HexLettersAlone", hexadecimal, "abc", 2748},
    {"HexUpperCaseLetters", hexadecimal, "ABC", 2748},
    {"HexTrailingText", hexadecimal, "12xyz", 18},
    {"HexLeadingBlanks", hexadecimal, "  0x10", 16},
    {"HexBlankBeforeAMinus", hexadecimal, " -1", 0xffffffff},
    {"HexLowBitsOnly", hexadecimal, "100000002", 2},
    {"HexLargest64", hexadecimal, "ffffffffffffffff", 0xffffffff},
    {"AnyOtherModeIsDecimal", 2, "10", 10},
};

INSTANTIATE_TEST_SUITE_P(Absolute, FieldText, testing::ValuesIn(absolute_rows),
                         [](const auto& row) { return row.param.test_name; });

const number_row relative_rows[] = {
    {"Up", decimal, "+3", 103},
    {"Down", decimal, "-3", 97},
    {"ByZeroIsCommitted", decimal, "+0", 100},
    {"PrefixIsNotRecognised", decimal, "+0x10", 100},
    {"TrailingText", decimal, "-5abc", 95},
    {"MoreThan32Bits", decimal, "+4294967195", 0xffffffff},
    {"HexUp", hexadecimal, "+10", 116},
    {"HexDown", hexadecimal, "-10", 84},
    {"HexDownByOne", hexadecimal, "-1", 99},
    {"HexPrefix", hexadecimal, "+0x10", 116},
    {"HexUpperCasePrefixDown", hexadecimal, "-0X10", 84},
    {"HexLettersAlone", hexadecimal, "+a", 110},
    {"HexPlusAllBitsIsMinusOne", hexadecimal, "+ffffffffffffffff", 99},
    {"HexMinusAllBitsIsPlusOne", hexadecimal, "-ffffffffffffffff", 101},
    {"AnyOtherModeIsDecimal", -1, "+10", 110},
};

INSTANTIATE_TEST_SUITE_P(Relative, FieldText, testing::ValuesIn(relative_rows),
                         [](const auto& row) { return row.param.test_name; });

struct refusal_row {
    int mode;
    const char* text;
    const char* error;
};

class FieldRefusal : public field_properties {};

TEST_F(FieldRefusal, TextWithoutANumberIsReportedAndTouchesNothing) {
    const char* const texts[] = {"abc", "x10", "+", "-", "+x", "--5", "+-5", "- 5", " ", "{1}"};
    std::string expected;
    for (const char* text : texts) {
        EXPECT_FALSE(set("wide::all", text)) << text;
        expected += std::string("failed to parse value ") + text + "\n";
    }
    property::m_number_mode = hexadecimal;
    for (const char* text : {"g", "x10", "+", "-", "+x1", "--5", "+-5", " "}) {
        EXPECT_FALSE(set("wide::all", text)) << text;
        expected += std::string("failed to parse value ") + text + "\n";
    }
    EXPECT_EQ(messages(), expected);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(FieldRefusal, EmptyTextIsRefusedSilently) {
    for (const int mode : {decimal, hexadecimal}) {
        property::m_number_mode = mode;
        EXPECT_FALSE(set("wide::all", ""));
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(FieldRefusal, NumberBeyond64BitsRaisesTheErrorOfItsReading) {
    const refusal_row rows[] = {
        {decimal, "99999999999999999999", "stoll"},
        {decimal, "9223372036854775808", "stoll"},
        {decimal, " -9223372036854775809", "stoll"},
        {decimal, "+99999999999999999999", "stoll"},
        {decimal, "-99999999999999999999", "stoll"},
        {decimal, "0x10000000000000000", "stoull"},
        {hexadecimal, "10000000000000000", "stoull"},
        {hexadecimal, "0x10000000000000000", "stoull"},
        {hexadecimal, "+10000000000000000", "stoull"},
        {hexadecimal, "-10000000000000000", "stoull"},
    };
    for (const refusal_row& row : rows) {
        property::m_number_mode = row.mode;
        EXPECT_THAT([&row] { set("wide::all", row.text); },
                    testing::ThrowsMessage<std::out_of_range>(row.error))
            << row.text;
    }
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(FieldRefusal, LargestHexadecimalStepDownClampsToTheLowerLimit) {
    property::m_number_mode = hexadecimal;
    EXPECT_TRUE(set("r::a", "-8000000000000000"));
    EXPECT_EQ(messages(), "warning! applying -9223372036854775808 to current value 7 is out of "
                          "range (0 ~ 15). adjusted to 0\n");
    EXPECT_THAT(log, ElementsAre(read(r, 0x12345678), write(r, 0x12345608), read(r, 0x12345608)));
}

struct format_row {
    unsigned int word;
    const char* decimal_text;
    const char* hexadecimal_text;
};

void PrintTo(const format_row& row, std::ostream* out) {
    *out << row.hexadecimal_text;
}

class FieldFormat : public field_properties, public testing::WithParamInterface<format_row> {};

TEST_P(FieldFormat, IsPlainDecimalOrUnpaddedLowerCaseHexadecimal) {
    const auto& [word, decimal_text, hexadecimal_text] = GetParam();
    fake_memory::words[wide] = word;
    property& p = *property::get_property("wide::all");
    EXPECT_EQ(shown(p), decimal_text);
    property::m_number_mode = hexadecimal;
    EXPECT_EQ(shown(p), hexadecimal_text);
    property::m_number_mode = 2; // any mode but 1 is decimal
    EXPECT_EQ(shown(p), decimal_text);
    EXPECT_THAT(log, ElementsAre(read(wide, word)));
}

const format_row format_rows[] = {
    {0, "0", "0x0"},
    {9, "9", "0x9"},
    {10, "10", "0xa"},
    {255, "255", "0xff"},
    {0xabcdef, "11259375", "0xabcdef"},
    {0xffffffff, "4294967295", "0xffffffff"},
};

INSTANTIATE_TEST_SUITE_P(Word, FieldFormat, testing::ValuesIn(format_rows),
                         [](const auto& row) { return row.param.hexadecimal_text; });

} // namespace property_register_text_test
