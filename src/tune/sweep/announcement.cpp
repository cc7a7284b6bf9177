#include "tune/sweep/announcement.hpp"

#include <algorithm>

#include "tune/knob/value_text.hpp"
#include "tune/sweep/precautions.hpp"
#include "tune/text/console.hpp"
#include "tune/text/machine.hpp"
#include "tune/text/read_text.hpp"
#include "tune/text/text.hpp"

namespace {

std::string described(const axis& a) {
    return a.description() + ", from " + a.text(a.nearest()) + " outwards";
}

std::size_t settled_in(const sweep_grid& grid) {
    return static_cast<std::size_t>(
        std::count_if(grid.cells.begin(), grid.cells.end(),
                      [](const point_result& cell) { return is_settled(cell.kind); }));
}

} // namespace

std::vector<std::string> orders_of(const std::vector<sweep_grid>& grids, bool all) {
    std::vector<std::string> lines;
    lines.reserve(grids.size() + 1);
    for (const sweep_grid& grid : grids) {
        lines.push_back(grid.columns.target().name() + ": " + described(grid.columns) +
                        (all ? ", all" : ""));
    }
    if (const auto& rows = grids.front().rows) {
        lines.push_back("for each of " + rows->target().name() + ": " + described(*rows));
    }
    return lines;
}

void announce(const std::vector<sweep_grid>& grids, const std::vector<std::string>& orders) {
    for (const std::string& order : orders) {
        say(order);
    }
    for (const sweep_grid& grid : grids) {
        if (const std::size_t done = settled_in(grid); done != 0) {
            say(grid.columns.target().name() + ": " + counted(done, "point") + " tried before");
        }
    }
    for (const std::string& mount : writable_mounts(read_text("/proc/mounts", ""))) {
        say("mounted for writing: " + mount);
    }
}

std::string session_lines(const std::vector<setting>& before,
                          const std::vector<std::string>& orders) {
    std::string lines = "session " + utc_time() + ", boot " + boot_id() + "\n";
    for (const auto& [k, code] : before) {
        lines += "before " + k->name() + " = " + to_text(*k, code) + "\n";
    }
    for (const std::string& order : orders) {
        lines += "order " + order + "\n";
    }
    return lines;
}
