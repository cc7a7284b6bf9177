#include <algorithm>
#include <cstdlib>
#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/failing_command.hpp"

// The n-th request for memory fails, alone or with all that follow it.

namespace failing_memory_test {

/** What is run: the program, and the same program on the C library's memory. */
struct memory_user {
    std::string name;
    std::string file;
};

void PrintTo(const memory_user& user, std::ostream* out) {
    *out << user.name;
}

const std::vector<memory_user> memory_users = {
    {"Program", BRISEL_BUILD_DIR "/brisel"},
    {"ProgramOnCMemory", PROGRAM_ON_C_MEMORY},
};

failing_run run_without(const std::string& number, const failing_command& command,
                        const memory_user& user) {
    return {command, "fail memory " + number, user.file};
}

/** How many requests the command makes, by way of the first number that none of them has. */
std::size_t requests_of(const failing_command& command, const memory_user& user) {
    const auto makes = [&](std::size_t number) {
        return !run_without(std::to_string(number), command, user).failed_line.empty();
    };
    std::size_t too_many = 4;
    while (makes(too_many)) {
        too_many *= 8;
    }
    std::size_t some = 0;
    while (too_many - some > 1) {
        const std::size_t middle = (some + too_many) / 2;
        (makes(middle) ? some : too_many) = middle;
    }
    return some;
}

class FailingMemory : public testing::TestWithParam<std::tuple<failing_command, memory_user>> {
protected:
    const failing_command& command() const { return std::get<0>(GetParam()); }
    const memory_user& user() const { return std::get<1>(GetParam()); }

    /** The run did the beginning of what it does with memory enough, or all of it. */
    void expect_nothing_wrong(const failing_run& run) const {
        EXPECT_THAT(run.result.status, testing::AnyOf(clean.result.status, 245, 246, aborted));
        ASSERT_LE(run.accesses.size(), clean.accesses.size());
        const auto end = clean.accesses.begin() + static_cast<std::ptrdiff_t>(run.accesses.size());
        EXPECT_THAT(run.accesses, testing::ElementsAreArray(clean.accesses.begin(), end));
        // A file that was opened to be written is empty first.
        EXPECT_THAT(run.file, testing::AnyOf(run.file_before, "", clean.file));
        EXPECT_TRUE(run.lock_is_free);
        if (run.result.status == 0) {
            EXPECT_EQ(run.result.out, clean.result.out);
            EXPECT_EQ(run.accesses.size(), clean.accesses.size());
        }
    }

    /** Thirty of these requests fail, or all if they are fewer, one in each run. */
    void fail_some(std::size_t first, std::size_t last) const {
        const std::size_t step = last < first + 30 ? 1 : (last - first) / 30;
        for (std::size_t number = first; number <= last; number += step) {
            for (const char* const which : {"", "+"}) {
                SCOPED_TRACE(std::to_string(number) + which);
                const failing_run run =
                    run_without(std::to_string(number) + which, command(), user());
                ASSERT_EQ(run.failed_line, "memory failed: Cannot allocate memory");
                expect_nothing_wrong(run);
                if (HasFailure()) {
                    return; // one is enough to look at
                }
            }
        }
    }

    const failing_run clean{command(), "", user().file};
};

TEST_P(FailingMemory, EndsTheRunOrFailsThePropertyButWritesNothingElse) {
    if (std::getenv("BRISEL_PROGRAM") != nullptr) {
        GTEST_SKIP() << "an emulator takes memory of its own";
    }
    const std::size_t of_start_up = requests_of({.name = "Help", .args = {"-h"}}, user());
    const std::size_t all = requests_of(command(), user());
    ASSERT_GT(all, 0U);
    fail_some(1, std::min(all, of_start_up));
    fail_some(of_start_up + 1, all);
}

std::string name_of(const testing::TestParamInfo<FailingMemory::ParamType>& param) {
    return std::get<0>(param.param).name + "_" + std::get<1>(param.param).name;
}

INSTANTIATE_TEST_SUITE_P(Of, FailingMemory,
                         testing::Combine(testing::ValuesIn(failing_commands),
                                          testing::ValuesIn(memory_users)),
                         name_of);

} // namespace failing_memory_test
