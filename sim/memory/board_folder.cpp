#include "memory/board_folder.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "model/board_paths.hpp"
#include "model/text.hpp"

namespace fs = std::filesystem;

namespace {

std::string text_of(const std::string& file) {
    std::ifstream stream(file);
    if (!stream) {
        throw input_error(file, std::strerror(errno));
    }
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

register_table registers_in(const std::string& file) {
    std::istringstream text(text_of(file));
    return register_table::parse(text, file);
}

constexpr std::size_t number_length = 8; // of a UUID's digits

/** The number in a boot's name; 0 where there is none. */
std::uint32_t boot_number(const std::string& file) {
    std::string name;
    std::ifstream(file) >> name;
    return parse_number("0x" + name.substr(0, number_length)).value_or(0);
}

/** A name for a boot: a UUID that begins with its number. */
std::string boot_name(std::uint32_t boot) {
    const std::string uuid = text_of("/proc/sys/kernel/random/uuid");
    return hex_text(boot).substr(2) + uuid.substr(number_length);
}

} // namespace

board_folder::board_folder(const std::string& path) : m_path(fs::canonical(path).string()) {}

register_table board_folder::registers() const {
    return registers_in(m_path + "/registers");
}

eyes board_folder::eyes_of(const register_table& registers) const {
    const std::string own = m_path + "/eyes";
    const std::string file = fs::exists(own) ? own : POWER_ON_DIR "/eyes";
    eyes all(registers, [this](const std::string& board_path) {
        return text_of(m_path + "/root" + board_path);
    });
    std::istringstream text(text_of(file));
    all.add_all(text, file);
    return all;
}

void board_folder::reset() const {
    const std::string boot_id = m_path + "/root" + std::string(boot_id_file);
    const std::uint32_t boot = boot_number(boot_id) + 1;
    fs::copy(POWER_ON_DIR "/root", m_path + "/root",
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    std::ofstream(boot_id) << boot_name(boot);
    std::minstd_rand random(boot);
    register_table table = registers_in(POWER_ON_DIR "/registers");
    const eyes all = eyes_of(table);
    for (const lane_eye& lane : all.lanes()) {
        const auto choices = static_cast<unsigned int>(2 * all.retrain() + 1);
        const int step = static_cast<int>(random() % choices) - all.retrain();
        const int delay = std::clamp(lane.delay() + step, -most_steps, most_steps);
        if (step != 0) {
            table.set_word(lane.place, with_delay(lane.word->word, delay));
        }
    }
    const std::string file = m_path + "/registers";
    const std::string new_file = file + ".new";
    {
        std::ofstream text(new_file);
        table.print(text);
    }
    fs::rename(new_file, file);
    fs::remove(m_path + "/synced");
}
