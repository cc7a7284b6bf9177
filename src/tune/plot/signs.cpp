#include "tune/plot/signs.hpp"

#include <algorithm>
#include <iterator>

namespace {

struct sign_of_verdict {
    verdict kind = verdict::untried;
    sign its_sign;
};

/** In the order of the verdicts. What was interrupted will be tried again: nothing is known of it.
 */
constexpr sign_of_verdict signs[] = {
    {verdict::untried, {".", "·", "2", "untried", "not tried"}},
    {verdict::interrupted, {".", "·", "2", "untried", "not tried"}},
    {verdict::pass, {"*", "█", "32", "passed", "passed"}},
    {verdict::part, {"", "", "33", "part", "passed in part"}},
    {verdict::no_stick, {"n", "n", "35", "no-stick", "did not stick"}},
    {verdict::fail, {"x", "×", "31", "failed", "failed"}},
    {verdict::timeout, {"t", "t", "35", "timed-out", "timed out"}},
    {verdict::unsound, {"u", "u", "31;1", "unsound", "unsound"}},
    {verdict::hang, {"H", "H", "31;1", "hung", "hung"}},
};

const sign& sign_for(verdict kind) {
    return std::find_if(std::begin(signs), std::end(signs),
                        [kind](const sign_of_verdict& each) { return each.kind == kind; })
        ->its_sign;
}

/** What a point is drawn as: one at which some of several logs passed as a part. */
verdict drawn_kind(const point_result& result) {
    return result.kind != verdict::pass && result.passed != 0 ? verdict::part : result.kind;
}

} // namespace

const sign& sign_of(const point_result& result) {
    return sign_for(drawn_kind(result));
}

char digit_of(const point_result& result) {
    int digit = result.passed;
    if (result.runs > 10) {
        digit = std::max(1, 10 * result.passed / result.runs);
    }
    return static_cast<char>('0' + digit);
}

std::string words_for(const point_result& result) {
    if (drawn_kind(result) != verdict::part) {
        return std::string(sign_for(result.kind).word);
    }
    std::string words =
        std::to_string(result.passed) + " of " + std::to_string(result.runs) + " passed";
    if (result.kind != verdict::part) {
        words.append(", else ").append(sign_for(result.kind).word);
    }
    return words;
}

const point_result& worse(const point_result& a, const point_result& b) {
    const verdict first = drawn_kind(a);
    const verdict second = drawn_kind(b);
    if (first == second) {
        return a.passed <= b.passed ? a : b;
    }
    return first < second ? b : a;
}

std::vector<const sign*> signs_in(const std::vector<sweep_grid>& grids) {
    std::vector<const sign*> found;
    for (const auto& [kind, its_sign] : signs) {
        const bool is_there =
            std::any_of(grids.begin(), grids.end(), [kind = kind](const sweep_grid& grid) {
                return std::any_of(grid.cells.begin(), grid.cells.end(),
                                   [kind](const auto& cell) { return drawn_kind(cell) == kind; });
            });
        const bool is_new = found.empty() || found.back()->word != its_sign.word;
        if (is_there && is_new) {
            found.push_back(&its_sign);
        }
    }
    return found;
}
