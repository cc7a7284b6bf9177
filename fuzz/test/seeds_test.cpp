// Every seed through its target: with the tool as it is, and with one that goes wrong.

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "board/memory_board.hpp"
#include "support/text_file.hpp"
#include "targets/targets.hpp"

namespace seeds_test {

struct target {
    std::string name; ///< of the target and of the folder of its seeds
    findings (*run)(const std::string& input);
};

const std::vector<target> targets = {
    {"plain_value", plain_value},         {"mapped_value", mapped_value},
    {"read_only_value", read_only_value}, {"dq_value", dq_value},
    {"word_value", word_value},           {"set_value", set_value},
    {"file_value", file_value},           {"regulator_value", regulator_value},
    {"tuning_file", tuning_file},         {"sweep_log_file", sweep_log_file},
};

/** What is found in the seeds of a target, each line with the name of the seed. */
findings found_in_seeds(const target& t) {
    findings all;
    for (const auto& seed : std::filesystem::directory_iterator(CORPUS_DIR "/" + t.name)) {
        for (const std::string& line : t.run(text_of(seed.path().string()))) {
            all.push_back(seed.path().filename().string() + ": " + line);
        }
    }
    return all;
}

template <class Row>
std::string name_of(const testing::TestParamInfo<Row>& row) {
    return row.param.name;
}

class Seeds : public testing::TestWithParam<target> {};

TEST_P(Seeds, AreWithoutAFinding) {
    EXPECT_THAT(found_in_seeds(GetParam()), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Targets, Seeds, testing::ValuesIn(targets), name_of<target>);

/** A way in which the tool goes wrong, and the targets that have to notice on their seeds. */
struct mistake {
    std::string name;
    std::function<void(memory_access&)> make;
    std::vector<std::string> noticed_by;
};

bool is_select(const memory_access& a) {
    return (a.address & 0xfff) == 0x12c;
}

void change_bit_15(memory_access& a) {
    if (a.written && !is_select(a)) {
        a.word ^= 0x8000;
    }
}

void change_bit_8(memory_access& a) {
    if (a.written && !is_select(a)) {
        a.word ^= 0x100;
    }
}

void change_the_code(memory_access& a) {
    if (a.written) {
        a.word &= 0xff3fffff;
    }
}

void select_another_slice(memory_access& a) {
    if (a.written && is_select(a)) {
        a.word ^= 0x20;
    }
}

void select_after_all(memory_access& a) {
    if (is_select(a)) {
        a.address += 0x10;
    }
}

void miss_by_a_word(memory_access& a) {
    a.address += 4;
}

void miss_by_a_byte(memory_access& a) {
    a.address += 1;
}

const std::vector<std::string> register_targets = {"plain_value", "mapped_value", "read_only_value",
                                                   "dq_value",    "word_value",   "set_value"};
const std::vector<mistake> mistakes = {
    {"ChangesABitOutsideTheField",
     change_bit_15,
     {"plain_value", "mapped_value", "dq_value", "set_value"}},
    {"ChangesTheBitAboveBit7", change_bit_8, {"mapped_value", "dq_value", "set_value"}},
    {"WritesACodeOfNoKey", change_the_code, {"mapped_value"}},
    {"SelectsAnotherSlice", select_another_slice, {"dq_value", "word_value", "set_value"}},
    {"DoesNotSelect", select_after_all, {"dq_value", "word_value", "set_value"}},
    {"MissesByAWord", miss_by_a_word, register_targets},
    {"MissesByAByte", miss_by_a_byte, register_targets},
};

class ToolGoneWrong : public testing::TestWithParam<mistake> {
protected:
    ToolGoneWrong() { memory_board::doctor = GetParam().make; }
    ~ToolGoneWrong() override { memory_board::doctor = nullptr; }
};

TEST_P(ToolGoneWrong, IsNoticedOnTheSeeds) {
    for (const target& t : targets) {
        const std::vector<std::string>& names = GetParam().noticed_by;
        if (std::find(names.begin(), names.end(), t.name) != names.end()) {
            EXPECT_THAT(found_in_seeds(t), testing::Not(testing::IsEmpty())) << t.name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Mistakes, ToolGoneWrong, testing::ValuesIn(mistakes), name_of<mistake>);

} // namespace seeds_test
