#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/cli_case.hpp"

namespace cli_table_test {

class CommandLine : public testing::TestWithParam<cli_case> {};

TEST_P(CommandLine, DoesWhatTheRowSays) {
    const cli_case& row = GetParam();
    const board on_board(row.board);
    const run_result result = on_board.run(row.args);
    EXPECT_EQ(result.out, row.out);
    EXPECT_EQ(result.err, row.err);
    EXPECT_EQ(result.status, row.status);
    EXPECT_THAT(on_board.accesses(), testing::ElementsAreArray(row.accesses));
    for (const auto& [path, text] : row.files) {
        EXPECT_EQ(on_board.file(path), text) << path;
    }
}

auto rows_of(const std::vector<cli_case>& table) {
    return testing::ValuesIn(table);
}

std::string name_of(const testing::TestParamInfo<cli_case>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Driver, CommandLine, rows_of(driver_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Numbers, CommandLine, rows_of(number_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Fields, CommandLine, rows_of(field_cases), name_of);
INSTANTIATE_TEST_SUITE_P(DqLanes, CommandLine, rows_of(dq_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Sets, CommandLine, rows_of(set_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Rdqs, CommandLine, rows_of(rdqs_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Regulators, CommandLine, rows_of(regulator_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Faults, CommandLine, rows_of(fault_cases), name_of);

} // namespace cli_table_test
