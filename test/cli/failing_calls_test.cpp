#include <algorithm>
#include <ostream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/failing_command.hpp"
#include "cli/failing_ending.hpp"

// The n-th call of a kind fails, for n = 1, 2, 3 ... until a run in which none is left to fail.

namespace failing_calls_test {

struct failing_kind {
    std::string call;
    std::vector<std::string> errors; ///< all that its manual page tells of
};

void PrintTo(const failing_kind& kind, std::ostream* out) {
    *out << kind.call;
}

// clang-format off
const std::vector<failing_kind> failing_kinds = {
    {"open",  {"EACCES", "EAGAIN", "EBADF", "EBUSY", "EDQUOT", "EEXIST", "EFAULT", "EFBIG", "EINTR",
               "EINVAL", "EISDIR", "ELOOP", "EMFILE", "ENAMETOOLONG", "ENFILE", "ENODEV", "ENOENT",
               "ENOMEM", "ENOSPC", "ENOTDIR", "ENXIO", "EOPNOTSUPP", "EOVERFLOW", "EPERM", "EROFS",
               "ETXTBSY"}},
    {"mmap",  {"EACCES", "EAGAIN", "EBADF", "EEXIST", "EINVAL", "ENFILE", "ENODEV", "ENOMEM",
               "EOVERFLOW", "EPERM", "ETXTBSY"}},
    {"flock", {"EAGAIN", "EBADF", "EINTR", "EINVAL", "ENOLCK"}},
    {"read",  {"EAGAIN", "EBADF", "EFAULT", "EINTR", "EINVAL", "EIO", "EISDIR"}},
    {"write", {"EAGAIN", "EBADF", "EDESTADDRREQ", "EDQUOT", "EFAULT", "EFBIG", "EINTR", "EINVAL",
               "EIO", "ENOSPC", "EPERM", "EPIPE"}},
};
// clang-format on

/** A transfer that a signal has interrupted is made again. */
bool is_tried_again(const std::string& call, const std::string& error) {
    return (call == "read" || call == "write") && error == "EINTR";
}

class FailingCalls : public testing::TestWithParam<std::tuple<failing_command, failing_kind>> {
protected:
    const failing_command& command() const { return std::get<0>(GetParam()); }
    const failing_kind& kind() const { return std::get<1>(GetParam()); }

    /** The errors for call number `number`: all of them for the first calls, then one in turn. */
    std::vector<std::string> errors_of(std::size_t number) const {
        const std::vector<std::string>& all = kind().errors;
        return number <= CALLS_WITH_ALL_ERRORS ? all : std::vector{all[number % all.size()]};
    }

    void expect_ending(const failing_run& run, const ending& expected, std::size_t accesses) const {
        EXPECT_EQ(run.result.out, expected.result.out);
        EXPECT_EQ(run.result.err, expected.result.err);
        EXPECT_EQ(run.result.status, expected.result.status);
        EXPECT_EQ(run.file, expected.file);
        EXPECT_TRUE(run.lock_is_free);
        if (expected.stops) {
            // Nothing follows the failed call, but that the file is closed.
            const auto failed = std::find(run.trace.rbegin(), run.trace.rend(), run.failed_line);
            EXPECT_NE(failed, run.trace.rend()) << run.failed_line;
            EXPECT_TRUE(std::all_of(run.trace.rbegin(), failed, [](const std::string& line) {
                return line.starts_with("close /sys/");
            })) << run.trace.back();
        } else if (run.result.status >= 0) {
            EXPECT_THAT(run.trace.back(), testing::StartsWith("unlock /tmp/brisel.lock"));
        }
        const auto end = clean.accesses.begin() + static_cast<std::ptrdiff_t>(accesses);
        EXPECT_THAT(run.accesses, testing::ElementsAreArray(clean.accesses.begin(), end));
    }

    const failing_run clean{command(), ""};
};

TEST_P(FailingCalls, EndInOrderOrStopTheRunWithNoAccessTooMany) {
    const std::vector<call_event> events = events_of(kind().call, clean.trace);
    ASSERT_EQ(clean.failed_line, "");
    for (std::size_t number = 1; number <= events.size(); ++number) {
        const call_event& event = events[number - 1];
        for (const std::string& error : errors_of(number)) {
            SCOPED_TRACE(kind().call + " " + std::to_string(number) + " " + error);
            const failing_run run(command(), "fail " + kind().call + " " + std::to_string(number) +
                                                 " " + error);
            ASSERT_THAT(run.failed_line, testing::StartsWith(event.line + " failed: "));
            const std::string reason = run.failed_line.substr(event.line.size() + 9);
            const ending expected = is_tried_again(kind().call, error)
                                        ? ending{clean.result, clean.file, false}
                                        : expected_ending(command(), clean, event, reason);
            expect_ending(run, expected, expected.stops ? event.accesses : clean.accesses.size());
            if (HasFailure()) {
                return; // one is enough to look at
            }
        }
    }
    const failing_run last(command(),
                           "fail " + kind().call + " " + std::to_string(events.size() + 1));
    EXPECT_EQ(last.failed_line, "") << "more calls than the trace tells of";
    expect_ending(last, {clean.result, clean.file, false}, clean.accesses.size());
}

std::string name_of(const testing::TestParamInfo<FailingCalls::ParamType>& param) {
    return std::get<0>(param.param).name + "_" + std::get<1>(param.param).call;
}

INSTANTIATE_TEST_SUITE_P(Of, FailingCalls,
                         testing::Combine(testing::ValuesIn(failing_commands),
                                          testing::ValuesIn(failing_kinds)),
                         name_of);

} // namespace failing_calls_test
