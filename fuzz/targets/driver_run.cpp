#include "targets/driver_run.hpp"

#include <memory>

#include <unistd.h>

#include "catalogue/protected_members.hpp"
#include "checker/checked_property.hpp"
#include "cli/instance_lock.hpp"
#include "platform/catalogue.hpp"
#include "support/captured_stream.hpp"

/** The program's `main`, compiled under this name. */
int brisel_main(int argc, char* argv[]);

namespace {

bool lock_works = true;
bool lock_held = false;

} // namespace

// In place of the lock of the machine.

bool take_instance_lock() {
    lock_held = lock_works;
    return lock_works;
}

void release_instance_lock() {
    lock_held = false;
}

namespace fuzz {
namespace {

/** Builds the properties of the catalogue that have files anew, with their files in a folder. */
void start_on(const board_files& files) {
    const captured_stream messages(standard_error);
    for (property* p : regulator_properties) {
        auto& old = dynamic_cast<property_regulator_voltage&>(*p);
        const std::string name = old.name;
        const std::string path = files.path(regulator_members::path(old));
        const double min_percent = regulator_members::min_percent(old);
        const double max_percent = regulator_members::max_percent(old);
        std::destroy_at(&old);
        std::construct_at(&old, name, path, min_percent, max_percent);
    }
    for (property* p : mmc_properties) {
        auto& old = dynamic_cast<property_file<int>&>(*p);
        const std::string name = old.name;
        const std::string path = files.path(file_members::path(old));
        const int min = file_members::min(old);
        const int max = file_members::max(old);
        std::destroy_at(&old);
        std::construct_at(&old, name, path, min, max);
    }
}

} // namespace

std::string driver_run::last_message() const {
    const std::string lines = err.substr(0, err.empty() ? 0 : err.size() - 1);
    return lines.substr(lines.rfind('\n') + 1);
}

driver_run run_driver(std::vector<std::string> words, const board_files& files, bool can_lock) {
    lock_works = can_lock;
    std::string program = "brisel";
    std::vector<char*> argv = {program.data()};
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    const int argc = static_cast<int>(argv.size());
    argv.push_back(nullptr);
    start_on(files);

    driver_run run;
    const captured_stream out(standard_output);
    const captured_stream err(standard_error);
    run.result = outcome_of([&] {
        run.status = brisel_main(argc, argv.data());
        return run.status == 0;
    });
    run.out = out.text();
    run.err = err.text();
    if (optind < argc) {
        run.operand = argv[static_cast<std::size_t>(optind)];
        run.has_value = optind + 1 < argc;
    }
    if (optarg != nullptr) {
        run.option_argument = optarg;
    }
    run.holds_lock = lock_held;
    return run;
}

} // namespace fuzz
