#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tune/tune_case.hpp"

namespace tune_table_test {

class TuneCommandLine : public testing::TestWithParam<tune_case> {};

TEST_P(TuneCommandLine, DoesWhatTheRowSays) {
    const tune_case& row = GetParam();
    const board on_board(row.board);
    const run_result result = run_tune(on_board, row.args, row.tuning);
    EXPECT_EQ(result.out, row.out);
    EXPECT_EQ(result.err, row.err);
    EXPECT_EQ(result.status, row.status);
    if (row.accesses != any_accesses) {
        EXPECT_THAT(on_board.accesses(), testing::ElementsAreArray(row.accesses));
    }
    for (const auto& [path, text] : row.files) {
        EXPECT_EQ(on_board.file(path), text) << path;
    }
}

auto rows_of(const std::vector<tune_case>& table) {
    return testing::ValuesIn(table);
}

std::string name_of(const testing::TestParamInfo<tune_case>& row) {
    return row.param.name;
}

INSTANTIATE_TEST_SUITE_P(Reading, TuneCommandLine, rows_of(read_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Writing, TuneCommandLine, rows_of(write_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Mistakes, TuneCommandLine, rows_of(mistake_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Sweeping, TuneCommandLine, rows_of(sweep_cases), name_of);
INSTANTIATE_TEST_SUITE_P(SweepMistakes, TuneCommandLine, rows_of(sweep_mistake_cases), name_of);
INSTANTIATE_TEST_SUITE_P(Faults, TuneCommandLine, rows_of(fault_cases_of_tune), name_of);

} // namespace tune_table_test
