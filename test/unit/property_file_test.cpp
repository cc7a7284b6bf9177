// The integer in a text file. The range is that of the eMMC host's attribute, 2 to 255, where a
// test does not say otherwise.

#include "property/property_file.hpp"

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/hardware_test.hpp"
#include "support/shown.hpp"
#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

namespace property_file_test {

using testing::ElementsAre;
using testing::IsEmpty;

class PropertyFile : public hardware_test {
protected:
    PropertyFile() { write_text(m_path, "100"); }

    std::string open_failure() const { return "open " + m_path + " failed.\n"; }

    temp_dir m_dir;
    const std::string m_path = m_dir.file("rdqs");
};

TEST_F(PropertyFile, ReadsTheFileAtConstruction) {
    property_file<int> p("mmc::rdqs", m_path, 2, 255);
    EXPECT_EQ(p.name, "mmc::rdqs");
    EXPECT_TRUE(p.m_auto_delete);
    std::filesystem::remove(m_path);
    EXPECT_EQ(shown(p), "100");
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(PropertyFile, HelpIsThatOfAKindWithoutOne) {
    property_file<int> p("p", m_path, 2, 255);
    std::string help;
    p.get_help(help);
    EXPECT_EQ(help, "no help.");
}

TEST_F(PropertyFile, NeverReadsTheFileAgainByItself) {
    property_file<int> p("p", m_path, 2, 255);
    write_text(m_path, "50");
    EXPECT_EQ(shown(p), "100");
    EXPECT_TRUE(p.set("+5"));
    EXPECT_EQ(shown(p), "105");
    EXPECT_EQ(text_of(m_path), "105");
}

TEST_F(PropertyFile, EverySetStartsFromTheValueBefore) {
    property_file<int> p("p", m_path, 2, 255);
    for (const char* text : {"+100", "+100", "-5", "--10"}) {
        EXPECT_TRUE(p.set(text));
    }
    EXPECT_EQ(text_of(m_path), "260"); // a doubled minus is not limited
    EXPECT_TRUE(p.set("+5"));
    EXPECT_EQ(text_of(m_path), "255");
    EXPECT_EQ(messages(), "apply current value 200 to +100is limited to 255\n"
                          "apply current value 260 to +5is limited to 255\n");
}

TEST_F(PropertyFile, MissingFileIsReportedAtConstructionAndSilentlyRefusesAllAfter) {
    const std::string path = m_dir.file("no such folder/rdqs");
    property_file<int> p("p", path, 2, 255);
    EXPECT_EQ(messages(), "open " + path + " failed.\n");
    EXPECT_EQ(shown(p), "(none)");
    EXPECT_FALSE(p.set("5"));
    EXPECT_FALSE(p.set("+5"));
    EXPECT_FALSE(p.commit());
    EXPECT_EQ(messages(), "open " + path + " failed.\n");
}

TEST_F(PropertyFile, RefusedWriteDoesNotCreateTheMissingFile) {
    std::filesystem::remove(m_path);
    property_file<int> p("p", m_path, 2, 255);
    EXPECT_FALSE(p.set("5"));
    EXPECT_FALSE(p.commit());
    EXPECT_FALSE(std::filesystem::exists(m_path));
    EXPECT_EQ(messages(), open_failure());
}

TEST_F(PropertyFile, ValueOutOfRangeAtStartIsReportedAndSilentlyRefusesAllAfter) {
    write_text(m_path, "300");
    property_file<int> p("p", m_path, 2, 255);
    const std::string line = "current value 300 is not valid, valid range = 2 ~ 255\n";
    EXPECT_EQ(messages(), line);
    EXPECT_EQ(shown(p), "(none)");
    EXPECT_FALSE(p.set("5"));
    EXPECT_FALSE(p.set("-50"));
    EXPECT_FALSE(p.commit());
    EXPECT_EQ(text_of(m_path), "300");
    EXPECT_EQ(messages(), line);
}

TEST_F(PropertyFile, RereadingValidatesAnew) {
    property_file<int> p("p", m_path, 2, 255);
    write_text(m_path, "256");
    EXPECT_FALSE(p.read_update());
    EXPECT_EQ(shown(p), "(none)");
    write_text(m_path, "255");
    EXPECT_TRUE(p.read_update());
    EXPECT_EQ(shown(p), "255");
    std::filesystem::remove(m_path);
    EXPECT_FALSE(p.read_update());
    EXPECT_EQ(shown(p), "(none)");
    EXPECT_EQ(messages(), "current value 256 is not valid, valid range = 2 ~ 255\n" + //
                              open_failure());
}

TEST_F(PropertyFile, ReplacesTheContentsByTheDigitsAlone) {
    write_text(m_path, "  100 and a long line of something else\n");
    property_file<int> p("p", m_path, 2, 255);
    EXPECT_TRUE(p.set("105"));
    EXPECT_EQ(text_of(m_path), "105");
    EXPECT_TRUE(p.set("7"));
    EXPECT_EQ(text_of(m_path), "7");
}

TEST_F(PropertyFile, CommitWritesTheCachedValue) {
    property_file<int> p("p", m_path, 2, 255);
    write_text(m_path, "something else");
    EXPECT_TRUE(p.commit());
    EXPECT_EQ(text_of(m_path), "100");
}

TEST_F(PropertyFile, UnwritableFileIsReportedAndTheNewValueKept) {
    property_file<int> p("p", m_path, 2, 255);
    make_unwritable(m_path);
    EXPECT_FALSE(p.set("+5"));
    EXPECT_EQ(messages(), open_failure());
    EXPECT_EQ(shown(p), "105");
}

TEST_F(PropertyFile, LimitIsReportedBeforeAnUnwritableFile) {
    property_file<int> p("p", m_path, 2, 255);
    make_unwritable(m_path);
    EXPECT_FALSE(p.set("256"));
    EXPECT_EQ(messages(), "apply current value 100 to 256is limited to 255\n" + open_failure());
    EXPECT_EQ(shown(p), "255");
}

TEST_F(PropertyFile, FailureWhileWritingGoesUnnoticed) {
    property_file<int> p("p", m_path, 2, 255);
    std::filesystem::remove(m_path);
    std::filesystem::create_symlink("/dev/full", m_path);
    EXPECT_TRUE(p.set("5"));
}

TEST_F(PropertyFile, IsDecimalInHexadecimalModeToo) {
    property_file<int> p("p", m_path, 2, 255);
    property::m_number_mode = 1;
    EXPECT_TRUE(p.set("+5"));
    EXPECT_EQ(shown(p), "105");
    EXPECT_TRUE(p.set("10"));
    EXPECT_EQ(shown(p), "10");
    EXPECT_EQ(text_of(m_path), "10");
}

TEST_F(PropertyFile, EveryMessageIsOneWrite) {
    fake_streams::reset();
    property_file<int> p("p", m_path, 2, 255);
    p.set("1");
    make_unwritable(m_path);
    p.commit();
    property_file<int> missing("p", m_dir.file("none"), 2, 255);
    write_text(m_dir.file("low"), "1");
    property_file<int> low("p", m_dir.file("low"), 2, 255);
    EXPECT_THAT(fake_streams::writes(),
                ElementsAre("apply current value 100 to 1is limited to 2\n", open_failure(),
                            "open " + m_dir.file("none") + " failed.\n",
                            "current value 1 is not valid, valid range = 2 ~ 255\n"));
}

/** A property whose hooks are replaced, and whose lower bound may lie above the upper one. */
class hooked_file : public property_file<int> {
public:
    hooked_file(const std::string& path, int min, int max) : property_file("p", path, min, max) {
        m_valid = true;
    }
    bool commit() override { return m_committed; }
    void warn_about_range(const std::string& requested, int limit) override {
        m_warning = requested + " limited to " + std::to_string(limit);
    }

    bool m_committed = true;
    std::string m_warning;
};

TEST_F(PropertyFile, SetGoesThroughTheHooksOfASubclass) {
    hooked_file p(m_path, 2, 255);
    EXPECT_TRUE(p.set("300"));
    EXPECT_EQ(p.m_warning, "300 limited to 255");
    p.m_committed = false;
    EXPECT_FALSE(p.set("50"));
    EXPECT_EQ(text_of(m_path), "100");
}

TEST_F(PropertyFile, LimitIsTheUpperBoundWhenTheBoundsAreReversed) {
    hooked_file p(m_path, 200, 50);
    EXPECT_TRUE(p.set("100"));
    EXPECT_EQ(p.m_warning, "100 limited to 50");
    EXPECT_EQ(shown(p), "50");
    EXPECT_EQ(messages(), "current value 100 is not valid, valid range = 200 ~ 50\n");
}

} // namespace property_file_test
