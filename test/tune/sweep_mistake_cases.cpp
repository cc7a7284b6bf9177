#include "cli/texts.hpp"
#include "tune/tune_case.hpp"

namespace {

/** A mistake before anything is touched. */
tune_case refused(const std::string& name, const std::vector<std::string>& args,
                  const std::string& err) {
    return {.name = name, .args = args, .err = err, .status = 2};
}

/** The same of a log, "TUNING", from its line "run" on. */
tune_case log_refused(const std::string& name, const std::vector<std::string>& args,
                      const std::string& log, const std::string& err) {
    tune_case refusal = refused(name, args, err);
    refusal.args.push_back(tuning_file);
    refusal.tuning = "brisel-tune sweep log, format 1\n" + log;
    return refusal;
}

} // namespace

const std::vector<tune_case> sweep_mistake_cases = {
    refused("TestThatIsNotThere", {"sweep", "mac-tx::delay=3", "--", "/no/such/test"},
            "cannot execute /no/such/test: No such file or directory\n"),
    refused("TestThatIsAFolder", {"sweep", "mac-tx::delay=3", "--", "/"},
            "cannot execute /: Permission denied\n"),
    refused("TestThatIsInNoFolder", {"sweep", "mac-tx::delay=3", "--", "no-such-test"},
            "cannot execute 'no-such-test': it is in no folder of PATH\n"),
    refused("TestWithoutAName", {"sweep", "mac-tx::delay=3", "--", ""},
            "cannot execute '': it is in no folder of PATH\n"),
    refused("TooManyPoints",
            {"sweep", "cpu_regulator::microvolts=800000..801000", "mmc::rdqs", "--", "true"},
            "the two axes have more than 100000 points: they need FROM..TO/STEP\n"),
    refused("SweepWithoutATest", {"sweep", "mac-tx::delay"},
            "usage: brisel-tune sweep AXIS [AXIS] -- COMMAND...\n"),
    refused("SweepOfNothing", {"sweep", "--", "true"},
            "usage: brisel-tune sweep AXIS [AXIS] -- COMMAND...\n"),
    refused("SweepOfThreeAxes", {"sweep", "a", "b", "c", "--", "true"},
            "usage: brisel-tune sweep AXIS [AXIS] -- COMMAND...\n"),
    refused("AxisOutOfRange", {"sweep", "mac-tx::delay=1..16", "--", "true"},
            "'16' is no value of mac-tx::delay, which takes 0 to 15\n"),
    refused("AxesThatShareBits", {"sweep", "mac-tx::delay", "mac-tx::delay", "--", "true"},
            "the axes mac-tx::delay and mac-tx::delay share bits\n"),
    refused("ReadOnlyAxis", {"sweep", "pcie-link::state-ro", "--", "true"},
            "pcie-link::state-ro is read-only\n"),
    refused("VoltageAboveTheLimitsOfAnAxis",
            {"sweep", "cpu_regulator::microvolts=1290000..1310000/10000", "--", "true"},
            "1310000 is outside the limits of cpu_regulator::microvolts, 800000 to 1300000\n"),
    refused("VoltageBelowTheLimitsOfASecondAxis",
            {"sweep", "mmc::rdqs", "cpu_regulator::microvolts=790000..800000/10000", "--", "true"},
            "790000 is outside the limits of cpu_regulator::microvolts, 800000 to 1300000\n"),
    refused("StopAfterNoPoint", {"sweep", "--stop=0", "mac-tx::delay", "--", "true"},
            "--stop takes a number from 1 to 1000, not '0'\n"),
    refused("StopAfterTooManyPoints", {"sweep", "--stop=1001", "mac-tx::delay", "--", "true"},
            "--stop takes a number from 1 to 1000, not '1001'\n"),
    refused("AxisWithoutItsValues", {"sweep", "mac-tx::delay=", "--", "true"},
            "'mac-tx::delay=' has no values\n"),
    refused("TimeoutOfNothing", {"sweep", "--timeout=0", "mac-tx::delay", "--", "true"},
            "--timeout takes a number of seconds above 0\n"),
    refused("StopWithText", {"sweep", "--stop=x", "mac-tx::delay", "--", "true"},
            "--stop takes a number from 1 to 1000, not 'x'\n"),
    refused("RepeatWithText", {"sweep", "--repeat=3x", "mac-tx::delay", "--", "true"},
            "--repeat takes a number from 1 to 100, not '3x'\n"),
    refused("ExistingLog", {"sweep", "-o", "/dev/null", "mmc::rdqs", "--", "true"},
            "/dev/null exists; --continue goes on with a log\n"),
    log_refused("LogOfThreeAxesIsRefused", {"sweep", "--continue"},
                "run sweep a b c -- true\nsession S, boot B\nbefore a = 1\n",
                "a sweep has one axis or two\n"),
    log_refused("LogWithoutAnAxisIsRefused", {"sweep", "--continue"},
                "run sweep -- true\nsession S, boot B\nbefore a = 1\n",
                "a sweep has one axis or two\n"),
    log_refused("LogOfAnotherCommandIsRefused", {"sweep", "--continue"},
                "run save mac -- true\nsession S, boot B\nbefore a = 1\n",
                "TUNING:2: 'save mac -- true' is no sweep\n"),
    log_refused("LogOfNoCommandIsRefused", {"sweep", "--continue"},
                "run \nsession S, boot B\nbefore a = 1\n", "TUNING:2: '' is no sweep\n"),
    log_refused("LogWithAnUnknownOptionIsRefused", {"best"},
                "run sweep --never a -- true\nsession S, boot B\nbefore a = 1\n",
                "TUNING:2: unknown option: '--never'\n"),
    log_refused(
        "LogWithAMistakeInAValueBeforeIsRefused", {"best"},
        "run sweep mac-tx::delay -- true\nsession S, boot B\nbefore mac-tx::delay = 16\norder o\n",
        "TUNING:4: '16' is no value of mac-tx::delay, which takes 0 to 15\n"),
    refused("TogetherWithoutASet", {"sweep", "--together", "mac-tx::delay", "--", "true"},
            "--together is for a set of lanes: mac-tx::delay is none\n"),
    refused("ContinueWithMoreThanALog", {"sweep", "--continue", tuning_file, "mac-tx::delay"},
            "--continue takes a log, and axes, COMMAND, -o and the other options from it\n"),
};
