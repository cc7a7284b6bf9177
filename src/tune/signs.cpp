#include "tune/signs.hpp"

#include <algorithm>
#include <iterator>

namespace {

/** By what is worse: the last one wins. Of what shall be tried again nothing is known. */
struct ranked_sign {
    verdict kind;
    sign its_sign;
};

constexpr ranked_sign signs[] = {
    {verdict::pass, {"*", "█", "32", "passed", "passed"}},
    {verdict::untried, {".", "·", "2", "untried", "not tried"}},
    {verdict::interrupted, {".", "·", "2", "untried", "not tried"}},
    {verdict::part, {"", "", "33", "part", "passed in part"}},
    {verdict::no_stick, {"n", "n", "35", "no-stick", "did not stick"}},
    {verdict::fail, {"x", "×", "31", "failed", "failed"}},
    {verdict::timeout, {"t", "t", "35", "timed-out", "timed out"}},
    {verdict::unsound, {"u", "u", "31;1", "unsound", "unsound"}},
    {verdict::hang, {"H", "H", "31;1", "hung", "hung"}},
};

/** Where the sign of a point is in the table. */
const ranked_sign& rank_of(const point_result& result) {
    verdict kind = result.kind;
    if (kind != verdict::pass && result.passed != 0) {
        kind = verdict::part;
    }
    return *std::find_if(std::begin(signs), std::end(signs),
                         [kind](const ranked_sign& each) { return each.kind == kind; });
}

} // namespace

const sign& sign_of(const point_result& result) {
    return rank_of(result).its_sign;
}

char digit_of(const point_result& result) {
    int digit = result.passed;
    if (result.runs > 10) {
        digit = std::max(1, 10 * result.passed / result.runs);
    }
    return static_cast<char>('0' + digit);
}

std::string words_for(const point_result& result) {
    const ranked_sign& its = rank_of(result);
    if (its.kind == verdict::part) {
        return std::to_string(result.passed) + " of " + std::to_string(result.runs) + " passed";
    }
    return std::string(its.its_sign.word);
}

const point_result& worse(const point_result& a, const point_result& b) {
    const ranked_sign& first = rank_of(a);
    const ranked_sign& second = rank_of(b);
    if (&first == &second) {
        return a.passed <= b.passed ? a : b;
    }
    return &first < &second ? b : a;
}

std::vector<const sign*> signs_in(const std::vector<sweep_grid>& grids) {
    std::vector<const sign*> found;
    for (const ranked_sign& each : signs) {
        const auto has_it = [&](const point_result& cell) { return &rank_of(cell) == &each; };
        const bool is_new = found.empty() || found.back()->word != each.its_sign.word;
        if (is_new && std::any_of(grids.begin(), grids.end(), [&](const sweep_grid& grid) {
                return std::any_of(grid.cells.begin(), grid.cells.end(), has_it);
            })) {
            found.push_back(&each.its_sign);
        }
    }
    return found;
}
