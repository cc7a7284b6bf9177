#include "model/board_model.hpp"

#include <sstream>

#include <gtest/gtest.h>

namespace sim {
namespace board_model_test {

constexpr std::uint32_t control = 0x18428120;
constexpr std::uint32_t select = 0x1842812c;
constexpr std::uint32_t read_delay = 0x18428194;
constexpr std::uint32_t pcie = 0x111a2204;

board_model board_with(const std::string& faults = "") {
    std::istringstream registers("0x18428120 -     0x40eb02b4 rw orlin-ddra i/o control\n"
                                 "0x1842812c -     0          rw orlin-ddra select\n"
                                 "0x18428194 0x000 0x41       rw orlin-ddra-read0 dq0\n"
                                 "0x18428194 0x107 0x42       rw orlin-ddra-read1 dq1\n"
                                 "0x184281a0 0x107 0x43       rw orlin-ddra-write1 dq1\n"
                                 "0x1842813c 0x008 0x44       rw orlin-ddra1\n"
                                 "0x111a2204 -     3          ro pcie state\n");
    std::istringstream fault_lines(faults);
    fault_list list;
    list.add_all(fault_lines, "faults");
    return {register_table::parse(registers, "registers"), list};
}

TEST(sim_board_model, a_word_that_is_written_is_read_back) {
    board_model board = board_with();
    EXPECT_EQ(board.read(control), 0x40eb02b4u);
    EXPECT_TRUE(board.write(control, 0x12345678));
    EXPECT_EQ(board.read(control), 0x12345678u);
}

TEST(sim_board_model, where_no_register_lies_there_is_nothing_to_read_or_write) {
    board_model board = board_with();
    EXPECT_EQ(board.read(0x18428124), std::nullopt);
    EXPECT_FALSE(board.write(0x18428124, 1));
    EXPECT_EQ(board.name_of(0x18428124), "");
    EXPECT_EQ(board.read(0x18448194), std::nullopt); // the data register of a PHY that is not there
}

TEST(sim_board_model, the_select_register_chooses_the_word_behind_the_data_registers) {
    board_model board = board_with();
    EXPECT_EQ(board.read(read_delay), 0x41u);
    board.write(select, 0x107);
    EXPECT_EQ(board.read(select), 0x107u);
    EXPECT_EQ(board.read(read_delay), 0x42u);
    EXPECT_EQ(board.read(0x184281a0), 0x43u);
    board.write(select, 0x008);
    EXPECT_EQ(board.read(0x1842813c), 0x44u);
}

TEST(sim_board_model, a_write_reaches_the_selected_word_and_no_other) {
    board_model board = board_with();
    board.write(select, 0x107);
    board.write(read_delay, 0xc5);
    EXPECT_EQ(board.read(read_delay), 0xc5u);
    EXPECT_EQ(board.read(0x184281a0), 0x43u);
    board.write(select, 0);
    EXPECT_EQ(board.read(read_delay), 0x41u);
}

TEST(sim_board_model, a_selector_that_is_not_listed_holds_0_until_it_is_written) {
    board_model board = board_with();
    board.write(select, 0x999);
    EXPECT_EQ(board.read(read_delay), 0u);
    EXPECT_EQ(board.registers().find({read_delay, 0x999}), nullptr);
    EXPECT_TRUE(board.write(read_delay, 5));
    EXPECT_EQ(board.read(read_delay), 5u);
    board.write(select, 0);
    board.write(select, 0x999);
    EXPECT_EQ(board.read(read_delay), 5u);
    EXPECT_EQ(board.registers().find({read_delay, 0x999})->name,
              "orlin-ddra read selector 0x00000999");
}

TEST(sim_board_model, a_read_only_word_takes_no_write) {
    board_model board = board_with();
    EXPECT_TRUE(board.write(pcie, 0));
    EXPECT_EQ(board.read(pcie), 3u);
}

TEST(sim_board_model, a_name_tells_the_bank_that_is_selected) {
    board_model board = board_with();
    EXPECT_EQ(board.name_of(control), "orlin-ddra i/o control");
    EXPECT_EQ(board.name_of(read_delay), "orlin-ddra-read0 dq0");
    board.write(select, 0x107);
    EXPECT_EQ(board.name_of(read_delay), "orlin-ddra-read1 dq1");
    EXPECT_EQ(board.name_of(0x184281a0), "orlin-ddra-write1 dq1");
    EXPECT_EQ(board.name_of(0x1842813c), "orlin-ddra slice selector 0x00000107");
}

TEST(sim_board_model, stuck_bits_keep_what_they_held) {
    board_model board = board_with("stuck 0x18428120 0xf0\n");
    board.write(control, 0xffffff0f);
    EXPECT_EQ(board.read(control), 0xffffffbfu);
}

TEST(sim_board_model, stuck_bits_of_a_word_that_was_never_written_are_0) {
    board_model board = board_with("stuck 0x18428194 0x0f\n");
    board.write(select, 0x999);
    board.write(read_delay, 0xff);
    EXPECT_EQ(board.read(read_delay), 0xf0u);
}

TEST(sim_board_model, a_register_that_reads_back_something_else_holds_what_was_written) {
    board_model board = board_with("reads-as 0x18428194/0x107 0x7f\n");
    board.write(select, 0x107);
    board.write(read_delay, 5);
    EXPECT_EQ(board.read(read_delay), 0x7fu);
    EXPECT_EQ(board.registers().find({read_delay, 0x107})->word, 5u);
}

TEST(sim_board_model, a_select_register_that_reads_back_something_else_still_selects) {
    board_model board = board_with("reads-as 0x1842812c 0\n");
    board.write(select, 0x107);
    EXPECT_EQ(board.read(select), 0u);
    EXPECT_EQ(board.read(read_delay), 0x42u);
}

} // namespace board_model_test
} // namespace sim
