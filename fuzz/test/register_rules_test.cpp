#include "checker_fixture.hpp"

namespace fuzz {
namespace register_rules_test {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/** At power-on "ebus-delay" holds 0x604: rx, bits 12 to 8, is 6 and tx, bits 4 to 0, is 4. */
class RegisterRules : public checker_fixture {
protected:
    static constexpr std::uint32_t ebus_delay = 0x11250cbc;
    static constexpr std::uint32_t ddra_io = 0x18428120;
    static constexpr std::uint32_t ddra_select = 0x1842812c;
    static constexpr std::uint32_t ddra_read = 0x18428194;

    const property_target& rx = target("ebus-delay::rx");
    const property_target& dq3 = target("orlin-ddra-read2::dq3");
    const property_target& set = target("orlin-ddra-read2::dq");

    void read_lane(std::uint32_t lane) {
        board.write(ddra_select, lane << 8 | 14);
        board.read(ddra_read);
    }

    void write_lane(std::uint32_t lane, std::uint32_t word) {
        board.write(ddra_select, lane << 8 | 14);
        board.write(ddra_read, word);
    }
};

TEST_F(RegisterRules, WriteOfTheFieldAloneIsRight) {
    board.read(ebus_delay);
    board.write(ebus_delay, 0x1f04);
    board.read(ebus_delay);
    checker.check_set(rx, outcome::accepted, "31");
    checker.check_get(rx, outcome::accepted, "31", false);
    checker.check_get(rx, outcome::accepted, "0x1f", true);
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(RegisterRules, ChangedNeighbourIsFound) {
    board.read(ebus_delay);
    board.write(ebus_delay, 0x2604);
    checker.check_set(rx, outcome::accepted, "6");
    EXPECT_THAT(found(), ElementsAre("bits outside the field changed: 0x00002000 in 0x11250cbc"));
}

TEST_F(RegisterRules, WriteOfAWordThatWasNotReadIsFound) {
    board.write(ebus_delay, 0x604);
    checker.check_set(rx, outcome::accepted, "6");
    EXPECT_THAT(found(), ElementsAre("written without being read: 0x11250cbc"));
}

TEST_F(RegisterRules, RefusedValueThatIsWrittenIsFound) {
    board.read(ebus_delay);
    board.write(ebus_delay, 0x604);
    checker.check_set(rx, outcome::refused, "32");
    EXPECT_THAT(found(), ElementsAre("refused and written"));
}

TEST_F(RegisterRules, WriteBeforeAnExceptionIsFound) {
    board.read(ebus_delay);
    board.write(ebus_delay, 0x604);
    checker.check_set(rx, outcome::out_of_range, "99999999999999999999");
    EXPECT_THAT(found(), ElementsAre("refused and written"));
}

TEST_F(RegisterRules, AcceptedValueThatIsNotWrittenIsFound) {
    board.read(ebus_delay);
    checker.check_set(rx, outcome::accepted, "6");
    EXPECT_THAT(found(), ElementsAre("accepted and not written"));
}

TEST_F(RegisterRules, WriteWhileReadingIsFound) {
    board.read(ebus_delay);
    board.write(ebus_delay, 0x604);
    checker.check_get(rx, outcome::accepted, "6", false);
    EXPECT_THAT(found(), ElementsAre("written while reading: 0x11250cbc"));
}

TEST_F(RegisterRules, ShownValueThatIsNotHeldIsFound) {
    board.read(ebus_delay);
    checker.check_get(rx, outcome::accepted, "4", false);
    EXPECT_THAT(found(), ElementsAre("shown: 4, held: 6"));
}

TEST_F(RegisterRules, RefusedReadOfALegalValueIsFound) {
    board.read(ebus_delay);
    checker.check_get(rx, outcome::refused, "", false);
    EXPECT_THAT(found(), ElementsAre("shown: nothing, held: 6"));
}

TEST_F(RegisterRules, ShownValueThatWasNeverReadIsFound) {
    checker.check_get(rx, outcome::accepted, "6", false);
    EXPECT_THAT(found(), ElementsAre("never read: 0x11250cbc", "shown: 6, held: no legal value"));
}

TEST_F(RegisterRules, ExceptionsOfTheWrongKindAreFound) {
    checker.check_set(rx, outcome::out_of_range, "99999999999999999999");
    EXPECT_THAT(found(), IsEmpty());
    checker.check_set(rx, outcome::invalid_argument, "abc");
    EXPECT_THAT(found(), ElementsAre(HasSubstr("std::invalid_argument")));
    board.read(ebus_delay);
    checker.check_get(rx, outcome::out_of_range, "", false);
    EXPECT_THAT(found()[1], HasSubstr("std::out_of_range"));
}

TEST_F(RegisterRules, AccessBesideAWordIsFound) {
    board.read(ebus_delay + 2);
    checker.check_set(rx, outcome::refused, "32");
    EXPECT_THAT(found(), ElementsAre("not aligned: 0x11250cbe", "no register there: 0x11250cbe",
                                     "not a register of the property: 0x11250cbe"));
}

TEST_F(RegisterRules, AccessToAnotherRegisterIsFound) {
    board.read(ddra_io);
    checker.check_set(rx, outcome::refused, "32");
    EXPECT_THAT(found(), ElementsAre("not a register of the property: 0x18428120"));
}

TEST_F(RegisterRules, AccessWhereNothingIsToBeDoneIsFound) {
    checker.check_idle();
    EXPECT_THAT(found(), IsEmpty());
    board.read(ebus_delay);
    checker.check_idle();
    EXPECT_THAT(found(), ElementsAre("not a register of the property: 0x11250cbc"));
}

TEST_F(RegisterRules, DataRegisterThatIsNotSelectedIsFound) {
    read_lane(3);
    board.read(ddra_read);
    checker.check_set(dq3, outcome::refused, "128");
    EXPECT_THAT(found(), ElementsAre("data register accessed without selecting: 0x18428194"));
}

TEST_F(RegisterRules, DqWriteHasToSetBit7) {
    read_lane(3);
    write_lane(3, 0x85);
    checker.check_set(dq3, outcome::accepted, "5");
    EXPECT_THAT(found(), IsEmpty());
    write_lane(3, 0x05);
    checker.check_set(dq3, outcome::accepted, "5");
    EXPECT_THAT(found(), ElementsAre("not set: 0x00000080 in 0x18428194"));
}

TEST_F(RegisterRules, DqWriteThatSetsBit8IsFound) {
    read_lane(3);
    write_lane(3, 0x185);
    checker.check_set(dq3, outcome::accepted, "5");
    EXPECT_THAT(found(), ElementsAre("bits outside the field changed: 0x00000100 in 0x18428194"));
}

TEST_F(RegisterRules, ChangeOfAnotherLaneIsFound) {
    read_lane(3);
    read_lane(4);
    write_lane(3, 0x85);
    write_lane(4, 0x7f);
    checker.check_set(dq3, outcome::accepted, "5");
    EXPECT_THAT(found(), ElementsAre(HasSubstr("bits outside the field changed")));
}

TEST_F(RegisterRules, CodeThatIsNotInTheMapIsFound) {
    const property_target& clkdrv = target("orlin-ddra::clkdrv");
    board.read(ddra_io);
    board.write(ddra_io, 0x403b02b4);
    checker.check_set(clkdrv, outcome::accepted, "30");
    EXPECT_THAT(found(), ElementsAre("not a code of the map: 0x403b02b4 in 0x18428120"));
    checker.check_get(clkdrv, outcome::refused, "", false);
    EXPECT_THAT(found(), testing::SizeIs(1));
}

TEST_F(RegisterRules, WriteOfAReadOnlyFieldIsFound) {
    board.read(0x111a2204);
    board.write(0x111a2204, 0x13);
    checker.check_set(target("pcie-ltssm::state-ro"), outcome::refused, "0x13");
    EXPECT_THAT(found(), ElementsAre("bits outside the field changed: 0x00000010 in 0x111a2204",
                                     "refused and written"));
}

TEST_F(RegisterRules, SetMayStopHalfWay) {
    for (std::uint32_t lane = 0; lane < 7; ++lane) {
        read_lane(lane);
        write_lane(lane, 0x80 + lane);
    }
    read_lane(7);
    checker.check_set(set, outcome::refused, "{0,1,2,3,4,5,6,200}");
    EXPECT_THAT(found(), IsEmpty());
    write_lane(7, 0x87);
    checker.check_set(set, outcome::refused, "{0,1,2,3,4,5,6,200}");
    EXPECT_THAT(found(), ElementsAre("refused and written"));
}

TEST_F(RegisterRules, SetThatLeavesOutAMemberIsFound) {
    read_lane(0);
    write_lane(0, 0x85);
    checker.check_set(set, outcome::accepted, "5");
    EXPECT_THAT(found(), ElementsAre("accepted and not written"));
}

TEST_F(RegisterRules, ListOfTheWrongLengthHasToTouchNothing) {
    checker.check_set(set, outcome::refused, "{1,2,3}");
    EXPECT_THAT(found(), IsEmpty());
    read_lane(0);
    checker.check_set(set, outcome::refused, "{1,2,3}");
    EXPECT_THAT(found(), ElementsAre(HasSubstr("list of the wrong length")));
}

TEST_F(RegisterRules, StepThatDoesNotLeadBackIsFound) {
    checker.check_round_trip("6", "6", "+3");
    EXPECT_THAT(found(), IsEmpty());
    checker.check_round_trip("6", "7", "+3");
    EXPECT_THAT(found(), ElementsAre("6 stepped by +3 and back is 7"));
}

} // namespace register_rules_test
} // namespace fuzz
