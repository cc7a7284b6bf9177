#include "tune/window/axis.hpp"

#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/knob/knobs.hpp"
#include "tune/text/mistake.hpp"

namespace axis_test {

using testing::ElementsAre;
using testing::ThrowsMessage;

struct axis_case {
    std::string name;
    std::string knob;
    std::string values;
    std::vector<std::uint32_t> present;
    std::string texts; ///< the first points and the last one; or the mistake
    std::size_t nearest = 0;
    std::size_t size = 0; ///< 0: a mistake
};

void PrintTo(const axis_case& c, std::ostream* out) {
    *out << c.knob << "=" << c.values;
}

const std::string lane = "orlin-ddra-read0::dq3";
const std::string slice = "orlin-ddra-read0::dq";
const std::string odt = "orlin-ddra::odt";

const std::vector<axis_case> axis_cases = {
    {"LaneByItsDelay", lane, "", {66}, "d-63 d-62 .. d+63", 65, 127},
    {"LaneWhosePresentDelayIsMinusNothing", lane, "d-1..d+1", {0}, "d-1 d-0 .. d+1", 1, 3},
    {"MappedFieldByItsKeysAndOffLast", odt, "", {4}, "40 60 .. 0", 1, 4},
    {"PlainFieldFromNothing", "mac-tx::delay", "", {2}, "0 1 .. 15", 2, 16},
    {"FileWithinItsRange", "mmc::rdqs", "", {40}, "2 3 .. 255", 38, 254},
    {"RangeWithAStep", lane, "d-10..d+10/4", {70}, "d-10 d-6 .. d+10", 4, 6},
    {"RangeThatItsStepDoesNotMeet", lane, "d-10..d+9/4", {70}, "d-10 d-6 .. d+6", 4, 5},
    {"RangeInCodes", lane, "5..69", {64}, "d-5 d-4 .. d+5", 5, 11},
    {"RangeOfKeys", odt, "60..0", {4}, "60 120 .. 0", 0, 3},
    {"OnePoint", lane, "d+5..d+5", {64}, "d+5 .. d+5", 0, 1},
    {"ListInNaturalOrder", lane, "d+5,3,d-9", {64}, "d-9 d-3 .. d+5", 1, 3},
    {"ListWithARawCode", odt, "40,raw:3", {3}, "raw:3 40 .. 40", 0, 2},
    {"ListWithTwoRawCodes", odt, "raw:5,40,raw:3", {5}, "raw:3 raw:5 .. 40", 1, 3},
    {"RawPresentCodeIsNearTheFirstKey", odt, "", {3}, "40 60 .. 0", 0, 4},
    {"StepInHexadecimal", "orlin-ddra0::scl", "0x10..0x30/0x10", {0}, "'0x10' is no step"},
    {"WordInARangeWithAStep",
     "orlin-ddra0::scl",
     "0x10..0x30/16",
     {0xffffffff},
     "0x00000010 0x00000020 .. 0x00000030",
     2,
     3},
    {"WordsHighestValues",
     "orlin-ddra0::scl",
     "4294967294..4294967295",
     {0},
     "0xfffffffe 0xffffffff .. 0xffffffff",
     0,
     2},
    {"VoltageInARange",
     "cpu_regulator::microvolts",
     "900000..1000000/50000",
     {1000000},
     "900000 950000 .. 1000000",
     2,
     3},
    {"SetByTheOffsetsThatAllLanesTake",
     slice,
     "",
     {65, 2, 67, 64, 1, 68, 66, 3},
     "d-60 d-59 .. d+59",
     60,
     120},
    {"SetOfLanesAtBothEnds", slice, "", {127, 63, 64, 64, 64, 64, 64, 64}, "d+0 .. d+0", 0, 1},
    {"SetByAListOfOffsets",
     slice,
     "d-1,d+1",
     {64, 64, 64, 64, 64, 64, 64, 64},
     "d-1 d+1 .. d+1",
     0,
     2},
    {"LargestRange",
     "orlin-ddra0::scl",
     "1..100000",
     {0},
     "0x00000001 0x00000002 .. 0x000186a0",
     0,
     100000},
    {"RangeThatIsTooLarge",
     "orlin-ddra0::scl",
     "0..100000",
     {0},
     "the range of orlin-ddra0::scl has more than 100000 points: it needs FROM..TO/STEP"},
    {"WordWithoutARange",
     "orlin-ddra0::scl",
     "",
     {0},
     "the range of orlin-ddra0::scl has more than 100000 points: it needs FROM..TO/STEP"},
    {"RangeBackwards", lane, "d+1..d-1", {64}, "the range of " + lane + " ends before it begins"},
    {"RangeOfWhatIsNoValue",
     lane,
     "x..d+1",
     {64},
     "'x' is no value of " + lane + ", which takes 0 to 127, d-63 to d+63"},
    {"StepOfNothing", lane, "d-1..d+1/0", {64}, "'0' is no step: it takes a number from 1"},
    {"StepOfText", lane, "d-1..d+1/x", {64}, "'x' is no step: it takes a number from 1"},
    {"StepWithTextBehind", lane, "d-1..d+1/1x", {64}, "'1x' is no step: it takes a number from 1"},
    {"RawCodeInARange",
     odt,
     "raw:3..60",
     {4},
     "'raw:3' stands in no range: its order is not known"},
    {"SameValueTwice", lane, "0,64", {64}, "d-0 is there twice"},
    {"SameNumberTwice", "mac-tx::delay", "4,4", {64}, "4 is there twice"},
    {"EmptyValueInAList",
     "mac-tx::delay",
     "4,",
     {64},
     "'' is no value of mac-tx::delay, which takes 0 to 15"},
    {"OffsetsEndWhereALaneWouldPassTheHighestDelay",
     slice,
     "d-2..d+2",
     {126, 64, 64, 64, 64, 64, 64, 64},
     "d-2 d-1 .. d+1",
     2,
     4},
    {"OffsetsBeginAStepBehindWhereALaneWouldPassTheLowestDelay",
     slice,
     "d-9..d+9/3",
     {64, 64, 64, 64, 64, 64, 64, 58},
     "d-3 d+0 .. d+9",
     1,
     5},
    {"OffsetsOfAListThatALaneDoesNotTakeAreLeftOut",
     slice,
     "d-6,d-5,d+1,d+2",
     {126, 64, 64, 64, 64, 64, 64, 58},
     "d-5 d+1 .. d+1",
     1,
     2},
    {"OffsetsWithTheLargestStep",
     slice,
     "d-9..d+9/9223372036854775807",
     {64, 64, 64, 64, 64, 64, 64, 58},
     "with each of these offsets a lane of " + slice + " would pass 63"},
    {"RangeOfOffsetsThatALaneDoesNotTake",
     slice,
     "d+1..d+9",
     {127, 64, 64, 64, 64, 64, 64, 64},
     "with each of these offsets a lane of " + slice + " would pass 63"},
    {"ListOfOffsetsThatALaneDoesNotTake",
     slice,
     "d-9,d+9",
     {127, 63, 64, 64, 64, 64, 64, 64},
     "with each of these offsets a lane of " + slice + " would pass 63"},
    {"ReadOnlyField", "pcie-link::state-ro", "", {0}, "pcie-link::state-ro is read-only"},
};

/** The first two points, if there are more than one, and the last one. */
std::string texts_of(const axis& a) {
    std::string text = a.text(0) + " ";
    if (a.size() > 1) {
        text += a.text(1) + " ";
    }
    return text + ".. " + a.text(a.size() - 1);
}

class Axis : public testing::TestWithParam<axis_case> {};

TEST_P(Axis, HasThesePoints) {
    const axis_case& c = GetParam();
    const knobs all;
    const auto make = [&] { return axis(all.named(c.knob), c.values, c.present); };
    if (c.size == 0) {
        EXPECT_THAT(make, ThrowsMessage<mistake>(testing::StartsWith(c.texts)));
        return;
    }
    const axis a = make();
    EXPECT_EQ(texts_of(a), c.texts);
    EXPECT_EQ(a.size(), c.size);
    EXPECT_EQ(a.nearest(), c.nearest);
    for (const std::size_t i : {std::size_t{0}, a.nearest(), a.size() - 1}) {
        EXPECT_EQ(a.find(a.text(i)), i);
    }
    EXPECT_EQ(a.find("nothing"), a.size());
}

INSTANTIATE_TEST_SUITE_P(Of, Axis, testing::ValuesIn(axis_cases),
                         [](const testing::TestParamInfo<axis_case>& row) {
                             return row.param.name;
                         });

TEST(Axis, FindsADelayOfNothingByEitherCode) {
    const knobs all;
    const axis a(all.named(lane), "d-1..d+1", {64});
    EXPECT_EQ(a.find("0"), 1U);
    EXPECT_EQ(a.find("64"), 1U);
    EXPECT_EQ(a.find("d+2"), a.size());
}

TEST(Axis, OfASetMovesAllItsLanes) {
    const knobs all;
    const axis a(all.named(slice), "d-1..d+1", {0, 1, 65, 62, 126, 64, 2, 66});
    const auto codes = [&](std::size_t i) {
        std::vector<std::uint32_t> found;
        for (const setting& each : a.settings_at(i)) {
            found.push_back(each.code);
        }
        return found;
    };
    EXPECT_THROW(axis(all.named(slice), "d-1", {63, 64, 64, 64, 64, 64, 64, 64}), mistake);
    EXPECT_THAT(codes(1), ElementsAre(0, 1, 65, 62, 126, 64, 2, 66)); // nothing changes
    EXPECT_THAT(codes(2), ElementsAre(65, 64, 66, 61, 127, 65, 1, 67));
}

TEST(Axis, FindsItsPoints) {
    const knobs all;
    const axis range(all.named(lane), "d-6..d+7/3", {64});
    EXPECT_EQ(range.size(), 5U);
    EXPECT_EQ(range.find("d-6"), 0U);
    EXPECT_EQ(range.find("d+6"), 4U);
    for (const char* const other : {"d-9", "d-5", "d+7", "d+9", "d+63", "x"}) {
        EXPECT_EQ(range.find(other), range.size()) << other;
    }
    const axis list(all.named("mac-tx::delay"), "3,9,6", {3});
    EXPECT_EQ(list.find("6"), 1U);
    for (const char* const other : {"2", "4", "10", "16"}) {
        EXPECT_EQ(list.find(other), list.size()) << other;
    }
}

TEST(Axis, SaysWhatItIs) {
    const knobs all;
    const auto description = [&](const std::string& values) {
        return axis(all.named("mac-tx::delay"), values, {3}).description();
    };
    EXPECT_EQ(description("3..3"), "1 point, 3");
    EXPECT_EQ(description("3..9/3"), "3 points, 3 to 9");
    EXPECT_EQ(description("9,3"), "2 points, 3, 9");
}

TEST(Axis, KnowsWhetherThePresentValueIsAPoint) {
    const knobs all;
    const auto has_present = [&](const std::string& values, std::uint32_t present) {
        return axis(all.named(odt), values, {present}).has_present();
    };
    EXPECT_TRUE(has_present("", 4));
    EXPECT_FALSE(has_present("40,120", 4));
    EXPECT_TRUE(has_present("raw:3,raw:5", 5));
    EXPECT_FALSE(has_present("raw:3,raw:5,40", 2));
    const std::vector<std::uint32_t> held(8, 70);
    EXPECT_TRUE(axis(all.named(slice), "d-2..d+2", held).has_present());
    EXPECT_FALSE(axis(all.named(slice), "d+1..d+2", held).has_present());
}

} // namespace axis_test
