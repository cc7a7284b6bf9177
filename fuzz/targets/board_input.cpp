#include "targets/board_input.hpp"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>

#include "model/board_paths.hpp"
#include "model/text.hpp"
#include "support/text_file.hpp"
#include "targets/value_input.hpp"

namespace fuzz {
namespace {

const sim::register_table& power_on_registers() {
    static const sim::register_table table = [] {
        std::ifstream file(POWER_ON_DIR "/registers");
        return sim::register_table::parse(file, POWER_ON_DIR "/registers");
    }();
    return table;
}

const file_contents& power_on_files() {
    static const file_contents files = [] {
        const std::filesystem::path root(POWER_ON_DIR "/root");
        file_contents found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
            if (entry.is_regular_file()) {
                const std::string path = entry.path().string();
                found[path.substr(root.string().size())] = text_of(path);
            }
        }
        return found;
    }();
    return files;
}

} // namespace

board_input::board_input(const std::string& text) : m_registers(power_on_registers()) {
    const std::vector<std::string> lines = lines_of(text);
    const auto prompt = std::find_if(lines.begin(), lines.end(),
                                     [](const auto& line) { return line.starts_with('$'); });
    if (prompt == lines.end()) {
        m_words = lines;
        return;
    }
    m_words.assign(prompt + 1, lines.end());
    for (auto line = lines.begin(); line != prompt; ++line) {
        std::string_view rest = *line;
        if (sim::take_word(rest) == "word") {
            set_word(rest);
            continue;
        }
        try {
            m_faults.add(*line, "input");
        } catch (const sim::input_error&) {
            continue; // no fault, then
        }
    }
}

void board_input::set_word(std::string_view operands) {
    const std::string_view place = sim::take_word(operands);
    const std::size_t slash = place.find('/');
    const auto address = sim::parse_number(place.substr(0, slash));
    const auto selector =
        slash == std::string_view::npos ? std::nullopt : sim::parse_number(place.substr(slash + 1));
    const auto word = sim::parse_number(sim::take_word(operands));
    if (address && word && m_registers.find({*address, selector}) != nullptr) {
        m_registers.set_word({*address, selector}, *word);
    }
}

file_contents board_input::files() const {
    file_contents contents = power_on_files();
    for (auto& [path, text] : contents) {
        if (m_faults.open_error(path, false)) {
            text = std::nullopt;
        } else if (const auto replaced = m_faults.content(path)) {
            text = replaced;
        }
    }
    return contents;
}

bool board_input::can_lock() const {
    return !m_faults.lock_error(sim::lock_file);
}

} // namespace fuzz
