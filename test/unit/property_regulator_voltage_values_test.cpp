// What the voltage of a regulator may be set to, and what its files may hold.

#include <ostream>
#include <stdexcept>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property_regulator_voltage.hpp"
#include "support/hardware_test.hpp"
#include "support/regulator.hpp"
#include "support/shown.hpp"

namespace property_regulator_voltage_values_test {

constexpr const char* out_of_limits = "mv: out of range(800000-1300000)\n";

struct request_row {
    const char* test_name;
    const char* text;
    const char* result; ///< the microvolts written, or those or the percentage refused
};

void PrintTo(const request_row& row, std::ostream* out) {
    *out << '"' << row.text << '"';
}

class regulator_request : public hardware_test, public testing::WithParamInterface<request_row> {
protected:
    regulator m_regulator;
    property_regulator_voltage m_property{"p", m_regulator.path(), 93, 107};
};

class AcceptedVoltage : public regulator_request {};

TEST_P(AcceptedVoltage, IsRaisedToAMultipleOf10000AndWritten) {
    EXPECT_TRUE(m_property.set(GetParam().text));
    EXPECT_EQ(m_regulator.microvolts(), GetParam().result);
    EXPECT_EQ(shown(m_property), GetParam().result);
}

const request_row accepted[] = {
    {"WholeMultiple", "1000000", "1000000"},
    {"Between", "1005000", "1010000"},
    {"JustAbove", "1000001", "1010000"},
    {"JustBelow", "999999", "1000000"},
    {"Fraction", "1000000.5", "1010000"},
    {"LowerLimit", "800000", "800000"},
    {"RaisedToTheLowerLimit", "790001", "800000"},
    {"UpperLimit", "1300000", "1300000"},
    {"RaisedToTheUpperLimit", "1290001", "1300000"},
    {"Exponent", "1.1e6", "1100000"},
    {"Hexadecimal", "0xF4240", "1000000"},
    {"PlusIsNoStep", "+900000", "900000"},
    {"LeadingBlanks", "  900000", "900000"},
    {"TrailingText", "900000uV", "900000"},
    {"PercentSignThatIsNotLast", "900000% of", "900000"},
    {"Percentage", "95%", "950000"},
    {"LowestPercentage", "93%", "930000"},
    {"CommaEndsAPercentage", "104,9%", "1040000"},
    {"HighestPercentageIsExact", "107%", "1070000"},
    {"Hundred", "100%", "1000000"},
    {"PercentageRaised", "95.5%", "960000"},
    {"PercentageWithPlus", "+95%", "950000"},
    {"PercentageWithBlanks", " 95 %", "950000"},
    {"PercentageWithTwoSigns", "95%%", "950000"},
    {"PercentageWithExponent", "9.5e1%", "950000"},
};

INSTANTIATE_TEST_SUITE_P(Regulator, AcceptedVoltage, testing::ValuesIn(accepted),
                         [](const auto& row) { return row.param.test_name; });

class RefusedVoltage : public regulator_request {};

TEST_P(RefusedVoltage, IsReportedAndNothingIsWritten) {
    EXPECT_FALSE(m_property.set(GetParam().text));
    EXPECT_EQ(messages(), std::string(GetParam().result) + out_of_limits);
    EXPECT_EQ(m_regulator.microvolts(), "1000000\n");
}

const request_row refused_voltages[] = {
    {"TooHigh", "2000000", "2000000"},
    {"RaisedBeyondTheLimit", "1300001", "1310000"},
    {"TooLow", "790000", "790000"},
    {"LessThanAStep", "1", "10000"},
    {"AStep", "10000", "10000"},
    {"Zero", "0", "0"},
    {"NegativeBecomesZero", "-900000", "0"},
    {"SlightlyNegativeBecomesZero", "-1", "0"},
    {"JustBelowTheLargest", "4294960000", "4294960000"},
    {"LargestOf32Bits", "4294967295", "4294967295"},
    {"BeyondThe32BitsBecomesTheLargest", "1e300", "4294967295"},
    {"InfinityBecomesTheLargest", "inf", "4294967295"},
    {"NotANumberBecomesZero", "nan", "0"},
    // It compares as neither below nor above the percentages.
    {"NotANumberPercentBecomesZero", "nan%", "0"},
};

INSTANTIATE_TEST_SUITE_P(Regulator, RefusedVoltage, testing::ValuesIn(refused_voltages),
                         [](const auto& row) { return row.param.test_name; });

class RefusedPercentage : public regulator_request {};

TEST_P(RefusedPercentage, IsReportedAndNothingIsWritten) {
    EXPECT_FALSE(m_property.set(GetParam().text));
    EXPECT_EQ(messages(), "percentage " + std::string(GetParam().result) + "%: out of range\n");
    EXPECT_EQ(m_regulator.microvolts(), "1000000\n");
}

const request_row refused_percentages[] = {
    {"TooLow", "92%", "92"},
    {"TooHigh", "108%", "108"},
    {"TooHighByAHalf", "107.5%", "107.5"},
    {"TooLowByAHalf", "92.5%", "92.5"},
    {"NoTrailingZeros", "110.00%", "110"},
    {"SixDigitsAtMost", "107.00012345%", "107"},
    {"SixDigitsRounded", "91.23456789%", "91.2346"},
    {"Negative", "-95%", "-95"},
    {"Zero", "0%", "0"},
    {"Large", "12345678%", "1.23457e+07"},
    {"Longest", "-1.234567e+300%", "-1.23457e+300"},
    {"Infinity", "inf%", "inf"},
    {"TrailingText", "120 or so %", "120"},
};

INSTANTIATE_TEST_SUITE_P(Regulator, RefusedPercentage, testing::ValuesIn(refused_percentages),
                         [](const auto& row) { return row.param.test_name; });

TEST(RegulatorNumbers, TextWithoutANumberRaisesStod) {
    const regulator board;
    property_regulator_voltage p("p", board.path(), 93, 107);
    for (const char* text : {"", "%", " ", "%%", "-", "high", "high%", "{900000}"}) {
        EXPECT_THAT([&] { p.set(text); }, testing::ThrowsMessage<std::invalid_argument>("stod"))
            << text;
    }
    EXPECT_EQ(board.microvolts(), "1000000\n");
}

TEST(RegulatorNumbers, NumberBeyondADoubleRaisesStod) {
    const regulator board;
    property_regulator_voltage p("p", board.path(), 93, 107);
    for (const char* text : {"1e999", "-1e999", "1e999%"}) {
        EXPECT_THAT([&] { p.set(text); }, testing::ThrowsMessage<std::out_of_range>("stod"))
            << text;
    }
    EXPECT_EQ(board.microvolts(), "1000000\n");
}

constexpr const char* voltage_files[] = {"microvolts", "min_microvolts", "max_microvolts"};

TEST(RegulatorNumbers, FileWithoutANumberRaisesStol) {
    for (const char* file : voltage_files) {
        for (const char* contents : {"", "\n", "unknown", "-", "uV 1000000"}) {
            const regulator board;
            board.set(file, contents);
            property_regulator_voltage p("p", board.path(), 93, 107);
            std::string text = "before";
            EXPECT_THAT([&] { p.get(text); },
                        testing::ThrowsMessage<std::invalid_argument>("stol"));
            EXPECT_THAT([&] { p.set("100%"); },
                        testing::ThrowsMessage<std::invalid_argument>("stol"));
            EXPECT_EQ(text, "before");
            EXPECT_EQ(text_of(board.file(file)), contents);
        }
    }
}

// Also where a long has 64 bits and would hold the number.
TEST(RegulatorNumbers, FileWithANumberBeyond32BitsRaisesStol) {
    for (const char* file : voltage_files) {
        for (const char* contents :
             {"2147483648", "-2147483649", "4294967295", "99999999999999999999"}) {
            const regulator board;
            board.set(file, contents);
            property_regulator_voltage p("p", board.path(), 93, 107);
            std::string text = "before";
            EXPECT_THAT([&] { p.get(text); }, testing::ThrowsMessage<std::out_of_range>("stol"));
            EXPECT_THAT([&] { p.set("100%"); }, testing::ThrowsMessage<std::out_of_range>("stol"));
            EXPECT_EQ(text, "before");
            EXPECT_EQ(text_of(board.file(file)), contents);
        }
    }
}

TEST(RegulatorNumbers, FirstWordOfAFileCountsUpToTheDigits) {
    for (const char* contents : {"1050000", " \n\t1050000\n", "1050000 7", "1050000uV", "+1050000",
                                 "01050000", "1050000.9"}) {
        const regulator board;
        board.set("microvolts", contents);
        property_regulator_voltage p("p", board.path(), 93, 107);
        EXPECT_EQ(shown(p), "1050000") << contents;
    }
    const regulator board;
    board.set("microvolts", "0x100");
    property_regulator_voltage p("p", board.path(), 93, 107);
    EXPECT_EQ(shown(p), "0");
}

class RegulatorArithmetic : public hardware_test {
protected:
    regulator m_regulator;
    property_regulator_voltage m_property{"p", m_regulator.path(), 93, 107};
};

TEST_F(RegulatorArithmetic, NegativeLimitIsTheUnsignedNumberOfTheSameBits) {
    m_regulator.set("min_microvolts", "-2147483648");
    m_regulator.set("max_microvolts", "-1");
    EXPECT_FALSE(m_property.set("900000"));
    EXPECT_EQ(messages(), "900000mv: out of range(2147483648-4294967295)\n");
}

// The file takes a signed number, whatever the limits say.
TEST_F(RegulatorArithmetic, VoltageBeyond31BitsIsWrittenAsANegativeNumber) {
    m_regulator.set("max_microvolts", "-1");
    EXPECT_TRUE(m_property.set("1e300"));
    EXPECT_EQ(m_regulator.microvolts(), "-1");
    EXPECT_TRUE(m_property.set("2147490000"));
    EXPECT_EQ(m_regulator.microvolts(), "-2147477296");
}

TEST_F(RegulatorArithmetic, ZeroIsWrittenWhereItIsLegal) {
    m_regulator.set("min_microvolts", "0");
    for (const char* text : {"0", "-50000", "nan"}) {
        m_regulator.set("microvolts", "1000000");
        EXPECT_TRUE(m_property.set(text));
        EXPECT_EQ(m_regulator.microvolts(), "0") << text;
    }
}

TEST_F(RegulatorArithmetic, PercentageBeyondTheVoltageLimitsIsRefusedInMicrovolts) {
    m_regulator.set("max_microvolts", "1050000");
    EXPECT_FALSE(m_property.set("107%"));
    EXPECT_EQ(messages(), "1070000mv: out of range(800000-1050000)\n");
    EXPECT_EQ(m_regulator.microvolts(), "1000000\n");
}

// 800000 times 1.0375 comes out just above 830000, and would be raised to 840000.
TEST_F(RegulatorArithmetic, PercentageIsMultipliedBeforeItIsDivided) {
    m_regulator.set("microvolts", "800000");
    EXPECT_TRUE(m_property.set("103.75%"));
    EXPECT_EQ(m_regulator.microvolts(), "830000");
}

} // namespace property_regulator_voltage_values_test
