#pragma once

#include <fstream>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "board/board_files.hpp"
#include "board/memory_board.hpp"
#include "checker/invariant_checker.hpp"
#include "checker/known_properties.hpp"

namespace fuzz {

/** A checker on a board at power-on, where the test does what the tool should do, or not. */
class checker_fixture : public testing::Test {
protected:
    explicit checker_fixture(const file_contents& contents = {}) : files(contents) {}

    static const property_target& target(const std::string& name) {
        return known_properties().at(name);
    }

    /** What the checker found so far. */
    const findings& found() const { return checker.violations(); }

    board_files files;
    memory_board board{model()};
    invariant_checker checker{board, files};

private:
    static sim::board_model model() {
        std::ifstream file(POWER_ON_DIR "/registers");
        return sim::board_model(sim::register_table::parse(file, "registers"), {});
    }
};

} // namespace fuzz
