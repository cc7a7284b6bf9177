// Several properties shown and set as one.

#include "property/property_set.hpp"

#include <list>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property_group.hpp"
#include "support/fake_property.hpp"
#include "support/hardware_test.hpp"
#include "support/shown.hpp"

namespace property_set_test {

using testing::ElementsAre;
using testing::IsEmpty;

class PropertySet : public hardware_test {
protected:
    PropertySet() { fake_property::log.clear(); }

    static fake_property& add(const std::string& name, const std::string& text) {
        auto* member = new fake_property(name, text);
        property::register_property("members", member);
        return *member;
    }

    /** Registers members of these texts, named "a", "b" and so on, and gives their names. */
    static std::vector<std::string> members(const std::vector<std::string>& texts) {
        std::vector<std::string> names;
        for (const std::string& text : texts) {
            names.emplace_back(1, static_cast<char>('a' + names.size()));
            add(names.back(), text);
        }
        return names;
    }

    static fake_property& member(const std::string& name) {
        return dynamic_cast<fake_property&>(*property::get_property(name));
    }
};

TEST_F(PropertySet, HoldsItsNameAndTheNamesOfItsMembersInTheirOrder) {
    const property_set set("orlin-ddra-read0::dq", {"b", "a", "b"});
    EXPECT_EQ(set.name, "orlin-ddra-read0::dq");
    EXPECT_TRUE(set.m_auto_delete);
    EXPECT_THAT(set.m_members, ElementsAre("b", "a", "b"));
}

TEST_F(PropertySet, TakesTheNamesFromAnyContainer) {
    const std::list<std::string> names = {"b", "a", "b"};
    EXPECT_THAT(property_set("set", names).m_members, ElementsAre("b", "a", "b"));
    EXPECT_THAT(property_set("set", std::set<std::string>{"b", "a"}).m_members,
                ElementsAre("a", "b"));
}

TEST_F(PropertySet, HelpIsThatOfAKindWithoutOne) {
    property_set set("set", members({"1"}));
    std::string help;
    set.get_help(help);
    EXPECT_EQ(help, "no help.");
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(PropertySet, ShowsTheMembersInTheirOrder) {
    property_set set("set", members({"10", "12", "9"}));
    EXPECT_EQ(shown(set), "{10,12,9}");
    EXPECT_THAT(fake_property::log, ElementsAre("get a", "get b", "get c"));
}

TEST_F(PropertySet, ShowsWhatTheMembersShowWhateverItIs) {
    members({"7", "", "8, 9"});
    property_set set("set", {"c", "a", "b", "a"});
    EXPECT_EQ(shown(set), "{8, 9,7,,7}");
}

TEST_F(PropertySet, OfOneMemberShowsNoComma) {
    property_set set("set", members({"7"}));
    EXPECT_EQ(shown(set), "{7}");
}

TEST_F(PropertySet, WithoutMembersShowsEmptyBraces) {
    property_set set("set", {});
    EXPECT_EQ(shown(set), "{}");
}

TEST_F(PropertySet, MissingMemberMakesItUnreadable) {
    members({"1", "2"});
    property_set set("set", {"a", "missing", "b"});
    EXPECT_EQ(shown(set), "(none)");
    EXPECT_THAT(fake_property::log, ElementsAre("get a"));
}

TEST_F(PropertySet, UnreadableMemberMakesItUnreadable) {
    property_set set("set", members({"1", "2", "3"}));
    member("b").m_readable = false;
    EXPECT_EQ(shown(set), "(none)");
    EXPECT_THAT(fake_property::log, ElementsAre("get a", "get b"));
}

TEST_F(PropertySet, MembersMayBeRegisteredAfterIt) {
    property_set set("set", {"late"});
    EXPECT_EQ(shown(set), "(none)");
    add("late", "1");
    EXPECT_EQ(shown(set), "{1}");
    EXPECT_TRUE(set.set("2"));
    EXPECT_EQ(shown(set), "{2}");
}

TEST_F(PropertySet, BracedListGivesEachMemberItsOwnValue) {
    property_set set("set", members({"1", "2", "3"}));
    EXPECT_TRUE(set.set("{30,20,10}"));
    EXPECT_THAT(fake_property::log, ElementsAre("set a 30", "set b 20", "set c 10"));
    EXPECT_EQ(shown(set), "{30,20,10}");
}

TEST_F(PropertySet, MemberNamedTwiceIsSetTwice) {
    members({"1", "2"});
    property_set set("set", {"b", "a", "b"});
    EXPECT_TRUE(set.set("{3,4,5}"));
    EXPECT_THAT(fake_property::log, ElementsAre("set b 3", "set a 4", "set b 5"));
}

TEST_F(PropertySet, PiecesAreNeitherTrimmedNorDropped) {
    property_set set("set", members({"", "", "", ""}));
    EXPECT_TRUE(set.set("{ 4,,{5} ,}"));
    EXPECT_THAT(fake_property::log, ElementsAre("set a  4", "set b ", "set c {5} ", "set d "));
}

TEST_F(PropertySet, EmptyBracesGiveOneMemberTheEmptyText) {
    property_set set("set", members({"1"}));
    EXPECT_TRUE(set.set("{}"));
    EXPECT_THAT(fake_property::log, ElementsAre("set a "));
}

TEST_F(PropertySet, WrongNumberOfPiecesIsReportedAndNoMemberTouched) {
    property_set eight("eight", members({"0", "1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_FALSE(eight.set("{1,2,3}"));
    EXPECT_EQ(messages(), "3 != 8\n");
    EXPECT_FALSE(eight.set("{}"));
    EXPECT_FALSE(eight.set("{1,2,3,4,5,6,7,8,}"));
    EXPECT_EQ(messages(), "3 != 8\n1 != 8\n9 != 8\n");
    EXPECT_THAT(fake_property::log, IsEmpty());
}

TEST_F(PropertySet, OnePieceIsTooManyWithoutMembers) {
    property_set set("set", {});
    EXPECT_FALSE(set.set("{}"));
    EXPECT_FALSE(set.set("{,}"));
    EXPECT_EQ(messages(), "1 != 0\n2 != 0\n");
}

TEST_F(PropertySet, AnyOtherTextGoesToEveryMemberInOrder) {
    property_set eight("eight", members({"0", "1", "2", "3", "4", "5", "6", "7"}));
    EXPECT_TRUE(eight.set("5"));
    EXPECT_THAT(fake_property::log, ElementsAre("set a 5", "set b 5", "set c 5", "set d 5",
                                                "set e 5", "set f 5", "set g 5", "set h 5"));
    EXPECT_EQ(shown(eight), "{5,5,5,5,5,5,5,5}");
}

TEST_F(PropertySet, TextThatIsNotBracedOnBothSidesIsPassedOnUnchanged) {
    property_set set("set", members({"1", "2"}));
    for (const char* text : {"{1,2", "1,2}", "{", "}", "", "+1", "-2", " {1,2}", "{1,2} ", "1,2"}) {
        fake_property::log.clear();
        EXPECT_TRUE(set.set(text)) << text;
        EXPECT_THAT(fake_property::log,
                    ElementsAre(std::string("set a ") + text, std::string("set b ") + text));
    }
}

TEST_F(PropertySet, AnyOtherTextIsAcceptedAtOnceWithoutMembers) {
    property_set set("set", {});
    EXPECT_TRUE(set.set("5"));
    EXPECT_TRUE(set.set(""));
    EXPECT_TRUE(set.set("{"));
}

TEST_F(PropertySet, RefusalEndsTheWorkAndKeepsWhatIsSet) {
    property_set eight("eight", members({"0", "1", "2", "3", "4", "5", "6", "7"}));
    member("c").m_writable = false;
    EXPECT_FALSE(eight.set("9"));
    EXPECT_EQ(messages(), "set failed\n");
    EXPECT_THAT(fake_property::log, ElementsAre("set a 9", "set b 9", "set c 9"));
    EXPECT_EQ(shown(eight), "{9,9,2,3,4,5,6,7}");
}

TEST_F(PropertySet, MissingMemberEndsTheWorkAndKeepsWhatIsSet) {
    members({"1", "2"});
    property_set set("set", {"a", "missing", "b"});
    EXPECT_FALSE(set.set("{7,8,9}"));
    EXPECT_EQ(messages(), "set failed\n");
    EXPECT_THAT(fake_property::log, ElementsAre("set a 7"));
}

TEST_F(PropertySet, IsNotTheOwnerOfItsMembers) {
    auto* set = new property_set("set", members({"1"}));
    delete set;
    EXPECT_THAT(fake_property::log, IsEmpty());
    EXPECT_EQ(member("a").m_text, "1");
}

TEST_F(PropertySet, EveryMessageIsOneWrite) {
    property_set set("set", {"missing"});
    fake_streams::reset();
    EXPECT_FALSE(set.set("{1,2}"));
    EXPECT_FALSE(set.set("1"));
    EXPECT_THAT(fake_streams::writes(), ElementsAre("2 != 1\n", "set failed\n"));
}

} // namespace property_set_test
