// What the tool prints for each action, and the status that it ends with.

#include "cli/actions.hpp"

#include <cstdlib>
#include <map>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/output_stream.hpp"
#include "property/property_group.hpp"
#include "support/fake_property.hpp"
#include "support/field_properties.hpp"
#include "support/hardware_test.hpp"

namespace actions_test {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* usage = "brisel [options] [<property> [value if write]]\n"
                              "options:\n"
                              "\t-h            : help\n"
                              "\t-i            : interactive mode\n"
                              "\t-l            : list all properties\n"
                              "\t-x            : show hex value (default decimal)\n";

class Actions : public hardware_test {
protected:
    Actions() {
        fake_property::log.clear();
        property::register_property("group", m_knob);
    }

    /** Of the registry. */
    fake_property* m_knob = new fake_property("knob", "42");
};

TEST_F(Actions, StatusesAreThoseThatScriptsKnow) {
    EXPECT_EQ(static_cast<int>(exit_status::success), 0);
    EXPECT_EQ(static_cast<int>(exit_status::lock_failed), -1);
    EXPECT_EQ(static_cast<int>(exit_status::usage_shown), -2);
    EXPECT_EQ(static_cast<int>(exit_status::not_supported), -3);
    EXPECT_EQ(static_cast<int>(exit_status::read_failed), -10);
    EXPECT_EQ(static_cast<int>(exit_status::write_failed), -11);
}

TEST_F(Actions, PrintWritesTheTextAsItIs) {
    print("Not supported yet.");
    EXPECT_FALSE(standard_output.bad());
    print("");
    EXPECT_EQ(output(), "Not supported yet.");
}

TEST_F(Actions, PrintOfANullPointerSetsTheBadBit) {
    // In a process of its own: the bit is not taken back.
    EXPECT_EXIT(
        {
            print(nullptr);
            print("lost");
            std::exit(standard_output.bad() && output().empty() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

TEST_F(Actions, UsageNamesTheFourListedOptionsEachLineInOneWrite) {
    print_usage();
    EXPECT_EQ(output(), usage);
    EXPECT_THAT(fake_streams::writes(), testing::SizeIs(6));
}

TEST_F(Actions, ReadPrintsTheValueAndThenTheStatusLine) {
    EXPECT_EQ(read_property("knob"), exit_status::success);
    EXPECT_EQ(output(), "42\n");
    EXPECT_EQ(messages(), "BRISEL: get knob := 42\n");
    EXPECT_THAT(fake_property::log, ElementsAre("get knob"));
}

TEST_F(Actions, FailedReadPrintsAnEmptyLineAndNoBlankBeforeFailed) {
    m_knob->m_text = "";
    m_knob->m_readable = false;
    EXPECT_EQ(read_property("knob"), exit_status::read_failed);
    EXPECT_EQ(output(), "\n");
    EXPECT_EQ(messages(), "BRISEL: get knobfailed.\n");
}

TEST_F(Actions, FailedReadPrintsWhatWasStoredBeforeTheFailure) {
    m_knob->m_readable = false;
    EXPECT_EQ(read_property("knob"), exit_status::read_failed);
    EXPECT_EQ(output(), "42\n");
    EXPECT_EQ(messages(), "BRISEL: get knobfailed.\n");
}

TEST_F(Actions, WriteHandsOverTheWordAndPrintsTheStatusLineAlone) {
    EXPECT_EQ(write_property("knob", " {1, +2}"), exit_status::success);
    EXPECT_EQ(messages(), "BRISEL: set knob :=  {1, +2}\n");
    EXPECT_THAT(fake_property::log, ElementsAre("set knob  {1, +2}"));
}

TEST_F(Actions, WriteOfAnEmptyWordIsAWrite) {
    EXPECT_EQ(write_property("knob", ""), exit_status::success);
    EXPECT_EQ(messages(), "BRISEL: set knob := \n");
    EXPECT_THAT(fake_property::log, ElementsAre("set knob "));
}

TEST_F(Actions, FailedWriteSaysSo) {
    m_knob->m_writable = false;
    EXPECT_EQ(write_property("knob", "5"), exit_status::write_failed);
    EXPECT_EQ(messages(), "BRISEL: set knob := 5 failed.\n");
    EXPECT_EQ(m_knob->m_text, "42");
}

TEST_F(Actions, UnknownNameIsAMessageAndNoFailure) {
    std::string expected;
    for (const char* name : {"kno", "knob ", "", "-l"}) {
        EXPECT_EQ(read_property(name), exit_status::success);
        EXPECT_EQ(write_property(name, "5"), exit_status::success);
        EXPECT_EQ(raw_read_property(name), exit_status::success);
        for (int i = 0; i < 3; ++i) {
            expected += "No such property registered.\n";
        }
    }
    EXPECT_EQ(messages(), expected);
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(Actions, RawReadPrintsTheValueAlone) {
    EXPECT_EQ(raw_read_property("knob"), exit_status::success);
    EXPECT_EQ(output(), "42\n");
    EXPECT_THAT(fake_property::log, ElementsAre("get knob"));
}

TEST_F(Actions, FailedRawReadIsReportedLikeAnUnknownNameAndPrintsNoValue) {
    m_knob->m_readable = false;
    EXPECT_EQ(raw_read_property("knob"), exit_status::success);
    EXPECT_EQ(messages(), "No such property registered.\n");
}

TEST_F(Actions, ListOfAnEmptyRegistryIsEmpty) {
    property_group::free_all();
    EXPECT_EQ(list_properties(), exit_status::success);
}

TEST_F(Actions, ListIsOrderedByGroupAndMemberName) {
    for (const char* name : {"b", "a1", "a", "B"}) {
        property::register_property("orlin-ddr", new fake_property(name));
    }
    property_group::register_property_group("Empty");
    property_group::register_property_group("orlin")->add_property(m_knob);
    EXPECT_EQ(list_properties(), exit_status::success);
    EXPECT_EQ(output(), "Empty :\n"
                        "group :\n"
                        "\tknob : no help.\n"
                        "orlin :\n"
                        "\tknob : no help.\n"
                        "orlin-ddr :\n"
                        "\tB : no help.\n"
                        "\ta : no help.\n"
                        "\ta1 : no help.\n"
                        "\tb : no help.\n");
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(Actions, ListLeavesOutWhatIsInNoGroup) {
    property_group::free_all();
    property_group::register_property_group("group");
    EXPECT_EQ(list_properties(), exit_status::success);
    EXPECT_EQ(output(), "group :\n");
}

TEST_F(Actions, ListLeavesTheRegistriesAsTheyAre) {
    const std::map<std::string, property_group*> groups = property_group::property_groups;
    list_properties();
    EXPECT_EQ(output(), "group :\n\tknob : no help.\n");
    EXPECT_EQ(property_group::property_groups, groups);
    EXPECT_THAT(groups.at("group")->m_properties, ElementsAre(testing::Pair("knob", m_knob)));
}

TEST_F(Actions, EveryLineIsOneWrite) {
    m_knob->m_readable = false;
    fake_streams::reset();
    read_property("knob");
    write_property("knob", "5");
    raw_read_property("unknown");
    list_properties();
    EXPECT_THAT(fake_streams::writes(),
                ElementsAre("42\n", "BRISEL: get knobfailed.\n", //
                            "BRISEL: set knob := 5\n", "No such property registered.\n",
                            "group :\n", "\tknob : no help.\n"));
}

class ActionsOnFields : public field_properties {};

TEST_F(ActionsOnFields, ListShowsDescriptionsAndReadsNothing) {
    EXPECT_EQ(list_properties(), exit_status::success);
    EXPECT_EQ(output(), "registers :\n"
                        "\tmixed::map : a few values\n"
                        "\tmixed::ro : seen only\n"
                        "\tr::a : four bits\n"
                        "\tr::b : five bits\n"
                        "\twide::all : every bit\n");
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

TEST_F(ActionsOnFields, HexadecimalValueIsShownInBothLines) {
    property::m_number_mode = 1;
    EXPECT_EQ(read_property("r::b"), exit_status::success);
    EXPECT_EQ(output(), "0x16\n");
    EXPECT_EQ(messages(), "BRISEL: get r::b := 0x16\n");
}

TEST_F(ActionsOnFields, StatusLineComesAfterWhatThePropertyReports) {
    EXPECT_EQ(write_property("r::a", "+10"), exit_status::success);
    EXPECT_EQ(write_property("r::a", "abc"), exit_status::write_failed);
    EXPECT_EQ(messages(), "warning! applying 10 to current value 7 is out of range (0 ~ 15). "
                          "adjusted to 15\n"
                          "BRISEL: set r::a := +10\n"
                          "failed to parse value abc\n"
                          "BRISEL: set r::a := abc failed.\n");
}

TEST_F(ActionsOnFields, RefusedWriteTouchesNoHardware) {
    EXPECT_EQ(write_property("r::a", "16"), exit_status::write_failed);
    EXPECT_EQ(messages(), "BRISEL: set r::a := 16 failed.\n");
    EXPECT_THAT(fake_memory::log, IsEmpty());
}

} // namespace actions_test
