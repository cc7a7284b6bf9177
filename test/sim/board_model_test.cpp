#include "model/board_model.hpp"

#include <sstream>

#include <gtest/gtest.h>

namespace board_model_test {

constexpr std::uint32_t control = 0x18428120;
constexpr std::uint32_t select = 0x1842812c;
constexpr std::uint32_t read_delay = 0x18428194;
constexpr std::uint32_t pcie = 0x111a2204;

board_model board_with(const std::string& faults = "") {
    std::istringstream registers("0x18428120 -     0x40eb02b4 rw orlin-ddra\n"
                                 "0x1842812c -     0          rw orlin-ddra select\n"
                                 "0x18428194 0x000 0x41       rw orlin-ddra-read0::dq0\n"
                                 "0x18428194 0x107 0x42       rw orlin-ddra-read1::dq1\n"
                                 "0x184281a0 0x107 0x43       rw orlin-ddra-write1::dq1\n"
                                 "0x1842813c 0x008 0x44       rw orlin-ddra1::scl\n"
                                 "0x111a2204 -     3          ro pcie-state\n");
    std::istringstream fault_lines(faults);
    fault_list list;
    const register_table table = register_table::parse(registers, "registers");
    list.add_all(fault_lines, "faults", table);
    return {table, list};
}

TEST(BoardModel, AWordThatIsWrittenIsReadBack) {
    board_model board = board_with();
    EXPECT_EQ(board.read(control), 0x40eb02b4U);
    EXPECT_TRUE(board.write(control, 0x12345678));
    EXPECT_EQ(board.read(control), 0x12345678U);
}

TEST(BoardModel, WhereNoRegisterLiesThereIsNothingToReadOrWrite) {
    board_model board = board_with();
    EXPECT_EQ(board.read(0x18428124), std::nullopt);
    EXPECT_FALSE(board.write(0x18428124, 1));
    EXPECT_EQ(board.name_of(0x18428124), "");
    EXPECT_EQ(board.read(0x18448194), std::nullopt); // the data register of a PHY that is not there
}

TEST(BoardModel, TheSelectRegisterChoosesTheWordBehindTheDataRegisters) {
    board_model board = board_with();
    EXPECT_EQ(board.read(read_delay), 0x41U);
    board.write(select, 0x107);
    EXPECT_EQ(board.read(select), 0x107U);
    EXPECT_EQ(board.read(read_delay), 0x42U);
    EXPECT_EQ(board.read(0x184281a0), 0x43U);
    board.write(select, 0x008);
    EXPECT_EQ(board.read(0x1842813c), 0x44U);
}

TEST(BoardModel, AWriteReachesTheSelectedWordAndNoOther) {
    board_model board = board_with();
    board.write(select, 0x107);
    board.write(read_delay, 0xc5);
    EXPECT_EQ(board.read(read_delay), 0xc5U);
    EXPECT_EQ(board.read(0x184281a0), 0x43U);
    board.write(select, 0);
    EXPECT_EQ(board.read(read_delay), 0x41U);
}

TEST(BoardModel, ASelectorThatIsNotListedHolds0UntilItIsWritten) {
    board_model board = board_with();
    board.write(select, 0x999);
    EXPECT_EQ(board.read(read_delay), 0U);
    EXPECT_EQ(board.registers().find({read_delay, 0x999}), nullptr);
    EXPECT_TRUE(board.write(read_delay, 5));
    EXPECT_EQ(board.read(read_delay), 5U);
    board.write(select, 0);
    board.write(select, 0x999);
    EXPECT_EQ(board.read(read_delay), 5U);
    EXPECT_EQ(board.registers().find({read_delay, 0x999})->name,
              "orlin-ddra read selector 0x00000999");
}

TEST(BoardModel, AReadOnlyWordTakesNoWrite) {
    board_model board = board_with();
    EXPECT_TRUE(board.write(pcie, 0));
    EXPECT_EQ(board.read(pcie), 3U);
}

TEST(BoardModel, ANameTellsTheBankThatIsSelected) {
    board_model board = board_with();
    EXPECT_EQ(board.name_of(control), "orlin-ddra");
    EXPECT_EQ(board.name_of(read_delay), "orlin-ddra-read0::dq0");
    board.write(select, 0x107);
    EXPECT_EQ(board.name_of(read_delay), "orlin-ddra-read1::dq1");
    EXPECT_EQ(board.name_of(0x184281a0), "orlin-ddra-write1::dq1");
    EXPECT_EQ(board.name_of(0x1842813c), "orlin-ddra slice selector 0x00000107");
}

TEST(BoardModel, StuckBitsKeepWhatTheyHeld) {
    board_model board = board_with("stuck 0x18428120 0xf0\n");
    board.write(control, 0xffffff0f);
    EXPECT_EQ(board.read(control), 0xffffffbfU);
}

TEST(BoardModel, StuckBitsOfAWordThatWasNeverWrittenAre0) {
    board_model board = board_with("stuck 0x18428194 0x0f\n");
    board.write(select, 0x999);
    board.write(read_delay, 0xff);
    EXPECT_EQ(board.read(read_delay), 0xf0U);
}

TEST(BoardModel, ARegisterThatReadsBackSomethingElseHoldsWhatWasWritten) {
    board_model board = board_with("reads-as 0x18428194/0x107 0x7f\n");
    board.write(select, 0x107);
    board.write(read_delay, 5);
    EXPECT_EQ(board.read(read_delay), 0x7fU);
    EXPECT_EQ(board.registers().find({read_delay, 0x107})->word, 5U);
}

TEST(BoardModel, ASelectRegisterThatReadsBackSomethingElseStillSelects) {
    board_model board = board_with("reads-as 0x1842812c 0\n");
    board.write(select, 0x107);
    EXPECT_EQ(board.read(select), 0U);
    EXPECT_EQ(board.read(read_delay), 0x42U);
}

} // namespace board_model_test