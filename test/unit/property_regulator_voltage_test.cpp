// The voltage of a regulator: what is loaded when, and what happens to the files.

#include "property/property_regulator_voltage.hpp"

#include <cstdint>
#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/hardware_test.hpp"
#include "support/regulator.hpp"
#include "support/shown.hpp"

namespace property_regulator_voltage_test {

using testing::ElementsAre;
using testing::IsEmpty;

/** The percentage range is that of every regulator on the board. */
class RegulatorVoltage : public hardware_test {
protected:
    regulator m_regulator;
    property_regulator_voltage m_property{"cpu_regulator::microvolts", m_regulator.path(), 93, 107};
};

TEST_F(RegulatorVoltage, BearsItsNameAndDeletesItself) {
    EXPECT_EQ(m_property.name, "cpu_regulator::microvolts");
    EXPECT_TRUE(m_property.m_auto_delete);
}

TEST_F(RegulatorVoltage, HelpIsThatOfAKindWithoutOne) {
    std::string help;
    m_property.get_help(help);
    EXPECT_EQ(help, "no help.");
}

/** A subclass may read and write numbers in files as its base does. */
class regulator_with_files : public property_regulator_voltage {
public:
    using property_regulator_voltage::_fileintread;
    using property_regulator_voltage::_fileintwrite;
};

TEST_F(RegulatorVoltage, LetsASubclassReadAndWriteNumbersInFiles) {
    const std::string file = m_regulator.path() + "/microvolts";
    std::int32_t number = 7;
    EXPECT_TRUE(regulator_with_files::_fileintwrite(file, -12));
    EXPECT_TRUE(regulator_with_files::_fileintread(file, number));
    EXPECT_EQ(number, -12);
    EXPECT_FALSE(regulator_with_files::_fileintread(file + "/none", number));
    EXPECT_FALSE(regulator_with_files::_fileintwrite(file + "/none", 1));
    EXPECT_EQ(number, -12);
}

TEST_F(RegulatorVoltage, ConstructionTouchesNoFile) {
    const temp_dir dir;
    const std::string path = dir.file("regulator.1");
    property_regulator_voltage p("p", path, 93, 107);
    std::filesystem::copy(m_regulator.path(), path);
    EXPECT_EQ(shown(p), "1000000");
}

TEST_F(RegulatorVoltage, ShowsThePresentVoltageAnew) {
    m_regulator.set("microvolts", "1100000");
    EXPECT_EQ(shown(m_property), "1100000");
    m_regulator.set("microvolts", "900000");
    EXPECT_EQ(shown(m_property), "900000");
    m_regulator.set("microvolts", "0");
    EXPECT_EQ(shown(m_property), "0");
    m_regulator.set("microvolts", "2147483647");
    EXPECT_EQ(shown(m_property), "2147483647");
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(RegulatorVoltage, ReadingWritesNoFile) {
    EXPECT_EQ(shown(m_property), "1000000");
    EXPECT_EQ(m_regulator.microvolts(), "1000000\n");
}

TEST_F(RegulatorVoltage, IsDecimalInHexadecimalModeToo) {
    property::m_number_mode = 1;
    EXPECT_TRUE(m_property.set("1100000"));
    EXPECT_EQ(shown(m_property), "1100000");
    EXPECT_TRUE(m_property.set("95%"));
    EXPECT_EQ(shown(m_property), "950000");
}

TEST_F(RegulatorVoltage, WritesTheDigitsAloneInPlaceOfTheContents) {
    m_regulator.set("microvolts", "1000000 and a long line of something else\n");
    EXPECT_TRUE(m_property.set("900000"));
    EXPECT_EQ(m_regulator.microvolts(), "900000");
    EXPECT_EQ(text_of(m_regulator.file("min_microvolts")), "800000\n");
    EXPECT_EQ(text_of(m_regulator.file("max_microvolts")), "1300000\n");
}

TEST_F(RegulatorVoltage, PercentagesStayBasedOnTheVoltageOfTheFirstUse) {
    EXPECT_TRUE(m_property.set("95%"));
    EXPECT_EQ(m_regulator.microvolts(), "950000");
    EXPECT_TRUE(m_property.set("95%"));
    EXPECT_EQ(m_regulator.microvolts(), "950000");
}

TEST_F(RegulatorVoltage, AnotherRunTakesTheLoweredVoltageAsItsBase) {
    EXPECT_TRUE(m_property.set("95%"));
    property_regulator_voltage next_run("p", m_regulator.path(), 93, 107);
    EXPECT_TRUE(next_run.set("95%"));
    EXPECT_EQ(m_regulator.microvolts(), "910000"); // 902500, raised
}

TEST_F(RegulatorVoltage, FirstReadLoadsTheBaseAndTheLimitsForGood) {
    EXPECT_EQ(shown(m_property), "1000000");
    m_regulator.set("microvolts", "1200000");
    m_regulator.remove("min_microvolts");
    m_regulator.remove("max_microvolts");
    EXPECT_TRUE(m_property.set("100%"));
    EXPECT_EQ(m_regulator.microvolts(), "1000000");
    EXPECT_FALSE(m_property.set("1310000"));
    EXPECT_EQ(messages(), "1310000mv: out of range(800000-1300000)\n");
    EXPECT_EQ(shown(m_property), "1000000");
}

TEST_F(RegulatorVoltage, EveryFileIsNeededToLoadTheLimits) {
    for (const char* missing : {"microvolts", "min_microvolts", "max_microvolts"}) {
        const regulator incomplete;
        incomplete.remove(missing);
        property_regulator_voltage p("p", incomplete.path(), 93, 107);
        for (int attempt = 1; attempt <= 2; ++attempt) {
            EXPECT_EQ(shown(p), "(none)") << missing;
            EXPECT_FALSE(p.set("900000")) << missing;
            EXPECT_FALSE(p.set("92%")) << missing;
        }
        EXPECT_FALSE(std::filesystem::exists(incomplete.file(missing)));
    }
    EXPECT_EQ(m_regulator.microvolts(), "1000000\n");
}

TEST_F(RegulatorVoltage, UnloadableLimitsAreNoticedBeforeTheTextIsRead) {
    m_regulator.remove("max_microvolts");
    EXPECT_FALSE(m_property.set("no number"));
}

TEST_F(RegulatorVoltage, FailedLoadIsTriedAgainAsAWhole) {
    m_regulator.remove("max_microvolts");
    EXPECT_EQ(shown(m_property), "(none)");
    m_regulator.set("microvolts", "1200000");
    m_regulator.set("min_microvolts", "1150000");
    m_regulator.set("max_microvolts", "1250000");
    EXPECT_TRUE(m_property.set("100%"));
    EXPECT_EQ(m_regulator.microvolts(), "1200000");
    EXPECT_FALSE(m_property.set("1140000"));
    EXPECT_EQ(messages(), "1140000mv: out of range(1150000-1250000)\n");
}

TEST_F(RegulatorVoltage, LoadStopsAtTheFirstFileThatFails) {
    m_regulator.set("max_microvolts", "garbage, which would raise an error");
    m_regulator.remove("min_microvolts");
    EXPECT_EQ(shown(m_property), "(none)");
    m_regulator.set("min_microvolts", "garbage, which would raise an error");
    m_regulator.remove("microvolts");
    EXPECT_EQ(shown(m_property), "(none)");
    m_regulator.set("microvolts", "-1");
    EXPECT_EQ(shown(m_property), "(none)");
}

TEST_F(RegulatorVoltage, NegativeVoltageHasNoValueAndNoMessage) {
    m_regulator.set("microvolts", "-1");
    EXPECT_EQ(shown(m_property), "(none)");
    EXPECT_FALSE(m_property.set("900000"));
    EXPECT_EQ(m_regulator.microvolts(), "-1");
}

TEST_F(RegulatorVoltage, VoltageThatTurnsNegativeOrGoesAwayHasNoValue) {
    EXPECT_EQ(shown(m_property), "1000000");
    m_regulator.set("microvolts", "-1");
    EXPECT_EQ(shown(m_property), "(none)");
    m_regulator.remove("microvolts");
    EXPECT_EQ(shown(m_property), "(none)");
}

TEST_F(RegulatorVoltage, VoltageFileThatCannotBeOpenedForWritingIsNoFailure) {
    EXPECT_EQ(shown(m_property), "1000000");
    make_unwritable(m_regulator.file("microvolts"));
    EXPECT_TRUE(m_property.set("900000"));
    EXPECT_TRUE(std::filesystem::is_directory(m_regulator.file("microvolts")));
}

TEST_F(RegulatorVoltage, EveryMessageIsOneWrite) {
    fake_streams::reset();
    EXPECT_FALSE(m_property.set("92.5%"));
    EXPECT_FALSE(m_property.set("2000000"));
    EXPECT_THAT(fake_streams::writes(), ElementsAre("percentage 92.5%: out of range\n",
                                                    "2000000mv: out of range(800000-1300000)\n"));
}

} // namespace property_regulator_voltage_test
