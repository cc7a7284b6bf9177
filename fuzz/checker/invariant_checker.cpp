#include "checker/invariant_checker.hpp"

#include <algorithm>
#include <cstdio>

#include "model/ddr_phy.hpp"
#include "model/text.hpp"

namespace {

std::optional<std::uint32_t> select_of(std::uint32_t address) {
    const std::optional<banked_register> banked = find_banked_register(address);
    return banked ? std::optional(banked->select_address) : std::nullopt;
}

bool has_data_register(const property_target& target, std::uint32_t address) {
    return std::any_of(target.fields.begin(), target.fields.end(),
                       [=](const field_place& field) { return field.place.address == address; });
}

bool has_select_register(const property_target& target, std::uint32_t address) {
    return std::any_of(target.fields.begin(), target.fields.end(), [=](const field_place& field) {
        return select_of(field.place.address) == address;
    });
}

std::string hex(std::uint32_t number) {
    return hex_text(number);
}

} // namespace

invariant_checker::invariant_checker(const memory_board& board, const board_files& files)
    : m_board(board), m_files(files), m_contents(files.at_first()) {}

void invariant_checker::check_set(const property_target& target, outcome result,
                                  const std::string& text) {
    check_exception(target, result, true);
    check_list(target, text);
    check_written(target, result, check_accesses(target, true));
    check_files(target, result == outcome::accepted, text);
}

void invariant_checker::check_get(const property_target& target, outcome result,
                                  const std::string& shown, bool hexadecimal) {
    check_exception(target, result, false);
    check_accesses(target, false);
    check_files(target, false, "");
    if (!target.is_in_registers()) {
        if (result == outcome::accepted) {
            check_shown_number(target, shown);
        }
        return;
    }
    const std::optional<std::string> held = text_of(target, hexadecimal);
    const std::optional<std::string> seen =
        result == outcome::accepted ? std::optional(shown) : std::nullopt;
    if (seen != held) {
        report("shown: " + seen.value_or("nothing") + ", held: " + held.value_or("no legal value"));
    }
}

void invariant_checker::check_round_trip(const std::string& before, const std::string& after,
                                         const std::string& step) {
    if (before != after) {
        report(before + " stepped by " + step + " and back is " + after);
    }
}

void invariant_checker::check_exception(const property_target& target, outcome result,
                                        bool setting) {
    const bool regulator = target.what == property_target::kind::regulator;
    if (result == outcome::out_of_range && !regulator && !(setting && target.is_in_registers())) {
        report("std::out_of_range where no number is out of range");
    }
    if (result == outcome::invalid_argument && !regulator) {
        report("std::invalid_argument from a property that is no regulator");
    }
}

invariant_checker::writes invariant_checker::check_accesses(const property_target& target,
                                                            bool may_write) {
    writes result;
    for (; m_checked < m_board.accesses().size(); ++m_checked) {
        const memory_access& made = m_board.accesses()[m_checked];
        check_access(target, m_checked);
        if (!has_data_register(target, made.address)) {
            continue;
        }
        if (made.written) {
            if (!may_write) {
                report("written while reading: " + hex(made.address));
            }
            check_write(target, made);
            result.sent.insert(made.place);
            if (m_seen[made.place] != made.word) {
                result.changed.insert(made.place);
            }
        }
        m_seen[made.place] = made.word;
    }
    return result;
}

void invariant_checker::check_access(const property_target& target, std::size_t index) {
    const memory_access& made = m_board.accesses()[index];
    if (made.address % 4 != 0) {
        report("not aligned: " + hex(made.address));
    }
    if (!m_board.has_register(made.address)) {
        report("no register there: " + hex(made.address));
    }
    if (!has_data_register(target, made.address) && !has_select_register(target, made.address)) {
        report("not a register of the property: " + hex(made.address));
    }
    const std::optional<std::uint32_t> select = select_of(made.address);
    if (!select) {
        return;
    }
    const memory_access* const before = index == 0 ? nullptr : &m_board.accesses()[index - 1];
    if (before == nullptr || !before->written || before->address != *select) {
        report("data register accessed without selecting: " + hex(made.address));
    }
}

void invariant_checker::check_write(const property_target& target, const memory_access& made) {
    const auto seen = m_seen.find(made.place);
    if (seen == m_seen.end()) {
        report("written without being read: " + hex(made.address));
        return;
    }
    std::uint32_t writable = 0;
    for (const field_place& field : target.fields) {
        if (field.place != made.place) {
            continue;
        }
        writable |= field.writable_bits();
        if ((made.word & field.set_bits()) != field.set_bits()) {
            report("not set: " + hex(field.set_bits()) + " in " + hex(made.address));
        }
        const auto is_written = [&](const auto& code) {
            return code.second == field.raw(made.word);
        };
        if (field.what == field_place::kind::mapped &&
            std::none_of(field.codes.begin(), field.codes.end(), is_written)) {
            report("not a code of the map: " + hex(made.word) + " in " + hex(made.address));
        }
    }
    const std::uint32_t strays = (seen->second ^ made.word) & ~writable;
    if (strays != 0) {
        report("bits outside the field changed: " + hex(strays) + " in " + hex(made.address));
    }
}

void invariant_checker::check_written(const property_target& target, outcome result,
                                      const writes& made) {
    if (!target.is_in_registers()) {
        return;
    }
    if (result == outcome::accepted) {
        if (!std::all_of(target.fields.begin(), target.fields.end(),
                         [&](const auto& field) { return made.sent.contains(field.place); })) {
            report("accepted and not written");
        }
        return;
    }
    // A set may fail at any member: the last one at least was not written.
    const bool field = target.what == property_target::kind::field;
    if (field ? !made.sent.empty() : made.changed.contains(target.fields.back().place)) {
        report("refused and written");
    }
}

void invariant_checker::check_list(const property_target& target, const std::string& text) {
    if (target.what != property_target::kind::set || text.size() < 2 || !text.starts_with('{') ||
        !text.ends_with('}')) {
        return;
    }
    const auto commas = static_cast<std::size_t>(std::count(text.begin(), text.end(), ','));
    if (commas + 1 != target.fields.size() && m_checked != m_board.accesses().size()) {
        report("a list of the wrong length touched the hardware: " + text);
    }
}

std::optional<std::string> invariant_checker::text_of(const field_place& field, bool hexadecimal) {
    const auto seen = m_seen.find(field.place);
    if (seen == m_seen.end()) {
        report("never read: " + hex(field.place.address));
        return std::nullopt;
    }
    std::uint32_t value = field.raw(seen->second);
    if (field.what == field_place::kind::mapped) {
        const auto code = std::find_if(field.codes.begin(), field.codes.end(),
                                       [=](const auto& entry) { return entry.second == value; });
        if (code == field.codes.end()) {
            return std::nullopt;
        }
        value = code->first;
    }
    char digits[16];
    std::snprintf(digits, sizeof digits, hexadecimal ? "0x%x" : "%u", value);
    return digits;
}

std::optional<std::string> invariant_checker::text_of(const property_target& target,
                                                      bool hexadecimal) {
    if (target.what == property_target::kind::field) {
        return text_of(target.fields.front(), hexadecimal);
    }
    std::string list;
    for (const field_place& field : target.fields) {
        const std::optional<std::string> text = text_of(field, hexadecimal);
        if (!text) {
            return std::nullopt;
        }
        list += (list.empty() ? "" : ",") + *text;
    }
    return "{" + list + "}";
}
