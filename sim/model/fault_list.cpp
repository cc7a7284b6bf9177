#include "model/fault_list.hpp"

#include "model/board_paths.hpp"
#include "model/device_layout.hpp"
#include "model/text.hpp"

namespace {

/** The error of the last fault whose path is `path` or a directory above it. */
template <typename Faults>
std::optional<int> error_for(const Faults& faults, std::string_view path) {
    std::optional<int> error;
    for (const auto& fault : faults) {
        if (is_at_or_below(path, fault.path)) {
            error = fault.error;
        }
    }
    return error;
}

bool concerns(const register_key& place, const register_key& key) {
    return place.address == key.address && (!place.selector || place.selector == key.selector);
}

} // namespace

std::uint32_t fault_list::stuck_bits(const register_key& key) const {
    std::uint32_t bits = 0;
    for (const word_fault& fault : m_stuck) {
        if (concerns(fault.place, key)) {
            bits |= fault.mask;
        }
    }
    return bits;
}

std::uint32_t fault_list::read_back(const register_key& key, std::uint32_t held) const {
    for (const word_fault& fault : m_reads_as) {
        if (concerns(fault.place, key)) {
            held = (held & ~fault.mask) | fault.word;
        }
    }
    return held;
}

std::optional<int> fault_list::open_error(std::string_view path, bool for_writing) const {
    const std::optional<int> error = error_for(m_no_open, path);
    return error || !for_writing ? error : error_for(m_no_write, path);
}

std::optional<int> fault_list::map_error(std::uint32_t address) const {
    std::optional<int> error;
    for (const page_fault& fault : m_no_map) {
        if (fault.page == page_of(address)) {
            error = fault.error;
        }
    }
    return error;
}

std::optional<int> fault_list::lock_error(std::string_view path) const {
    return error_for(m_no_lock, path);
}

std::optional<int> fault_list::call_error(failing_call call, std::uint32_t number) const noexcept {
    return last_number(m_calls, call, number);
}

std::optional<int> fault_list::call_signal(failing_call call, std::uint32_t number) const noexcept {
    return last_number(m_signals, call, number);
}

std::optional<int> fault_list::last_number(const std::vector<call_fault>& faults, failing_call call,
                                           std::uint32_t number) noexcept {
    std::optional<int> found;
    for (const call_fault& fault : faults) {
        const bool concerned = fault.and_all_later ? number >= fault.first : number == fault.first;
        if (fault.call == call && concerned) {
            found = fault.number;
        }
    }
    return found;
}

std::optional<std::string> fault_list::content(std::string_view path) const {
    std::optional<std::string> text;
    for (const content_fault& fault : m_content) {
        if (fault.path == path) {
            text = fault.text;
        }
    }
    return text;
}
