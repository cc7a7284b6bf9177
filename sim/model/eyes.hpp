#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "model/lane_eye.hpp"
#include "model/register_table.hpp"

/** What becomes of a memory test. */
enum class test_end { passes, fails, board_dies };

/**
 * Which delays of a board's lanes pass a memory test, as the text that people read and edit.
 *
 *     eye     LANES FROM TO                the delays that pass
 *     hole    LANES FROM TO                delays among them that fail
 *     narrow  LANES PROPERTY CODE N        N steps less at each end per step of the field from CODE
 *     shift   LANES FILE NOMINAL PER_STEP  a step up for each PER_STEP that FILE is above NOMINAL
 *     edge    N                            so far outside its window a lane fails; further, all
 * dies retrain N                            after a death, delays differ by up to N steps
 *
 * LANES is a lane or a pattern of the shell. A lane is a word whose name ends in "::dq" and a
 * digit. The last window of a lane counts; holes, narrowings and shifts add up. FROM and TO are -63
 * to 63, CODE is the number in the field's bits, FILE a regulator's, NOMINAL and PER_STEP
 * microvolts.
 */
class eyes {
public:
    /** What a file of the board holds, by its absolute path there. */
    using file_reader = std::function<std::string(const std::string& path)>;

    /** All lanes of the table pass. The table has to outlive the eyes. */
    eyes(const register_table& registers, file_reader read_file);

    /** Adds the lines of a whole text; `file` is its name for messages. As `add` for each line. */
    void add_all(std::istream& text, const std::string& file);

    /**
     * Adds one line, with what its field or its file holds now; nothing for an empty line or one
     * that begins with "#". `where` is its place for messages. Throws input_error where the line
     * makes no sense, fits no lane, or its file holds no number.
     */
    void add(std::string_view line, const std::string& where);

    /** Every lane of the table, by address and selector. */
    const std::vector<lane_eye>& lanes() const { return m_lanes; }

    /** What the lane's delay does to a memory test. */
    test_end end_of(const lane_eye& lane) const;

    /** How many steps at most the training at a boot moves a delay. */
    int retrain() const { return m_retrain; }

private:
    class line_parser;

    const register_table& m_registers;
    file_reader m_read_file;
    std::vector<lane_eye> m_lanes;
    int m_edge = 0;
    int m_retrain = 0;
};
