#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tune/board/change.hpp"
#include "tune/board/lane_watch.hpp"
#include "tune/sweep/log_writer.hpp"
#include "tune/sweep/progress.hpp"
#include "tune/sweep/trial.hpp"
#include "tune/text/command_line.hpp"
#include "tune/text/tune_status.hpp"
#include "tune/window/sweep_grid.hpp"

/** What ends a sweep before its last point. */
struct sweep_end {
    std::string why; ///< for the log and the user, in lines
    tune_status status;
    std::string verdict = {}; ///< of a point that has none in the log: a line
};

/**
 * A sweep at work: sets a point, runs the test, puts back what was there, and logs it, point by
 * point. While a value is tried, nothing is written to a file and nothing printed.
 */
class sweep {
public:
    /**
     * @param before what the parts of the axes hold, and hold again after each point
     * @param words  of the command line; they and the log outlive the sweep
     */
    sweep(const knobs& all, const std::vector<setting>& before, const command_line& words,
          log_writer& log);

    /**
     * Tries the points of grids that are not settled, in their order, and notes what becomes of
     * them in it.
     * @throw sweep_end when it ends before the last one
     * @throw mistake when the log cannot be written
     */
    void go_through(std::vector<sweep_grid>& grids);

private:
    bool is_to_be_tried(const point_result& cell) const;
    void go_through(sweep_grid& grid);

    /** @param column where the row is begun. @return whether a point passed */
    bool go_through_row(sweep_grid& grid, std::size_t row, std::size_t column);

    point_result try_point(const sweep_grid& grid, std::size_t row, std::size_t column);

    /**
     * Sets a point; where it does not stick, `m_output` says how.
     * @return why the sweep is to be ended; empty for nothing
     */
    std::string set(const std::vector<change>& changes);

    /** The runs of the test that a point needs, none begun. */
    std::vector<std::unique_ptr<trial>> prepare(const sweep_grid& grid,
                                                const std::vector<setting>& tried) const;

    /** Runs the test as often as it was prepared. */
    point_result run(const std::vector<std::unique_ptr<trial>>& trials);

    /** @return why something is not as before; empty if all is */
    std::string put_back(const std::vector<setting>& tried, std::vector<change> changes);
    void check_memory(const sweep_grid& grid);
    void look_at_lanes();

    const std::vector<setting> m_before;
    const std::vector<const knob*> m_targets;
    const command_line& m_words;
    log_writer& m_log;
    lane_watch m_lanes;
    progress m_progress;
    std::string m_output;  ///< what was said of the last point that did not pass
    std::string m_trouble; ///< why the test could not be executed; empty if it could
};
