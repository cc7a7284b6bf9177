#include "targets/targets.hpp"

#include "checker/known_properties.hpp"
#include "targets/board_input.hpp"
#include "targets/driver_rules.hpp"
#include "targets/separate_process.hpp"

namespace fuzz {

findings command_line(const std::string& text) {
    known_properties(); // read once, and not anew in every process
    static board_files files;
    const board_input input(text);
    files.reset(input.files());
    return in_separate_process([&] {
        const memory_board board(input.model());
        invariant_checker checker(board, files);
        const driver_run run = run_driver(input.words(), files, input.can_lock());
        check_run(run, input.can_lock(), checker);
        return checker.violations();
    });
}

} // namespace fuzz
