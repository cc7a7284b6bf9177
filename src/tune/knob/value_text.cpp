#include "tune/knob/value_text.hpp"

#include <algorithm>
#include <charconv>
#include <limits>
#include <optional>

#include "base/hexadecimal.hpp"
#include "tune/knob/lane_delay.hpp"
#include "tune/text/mistake.hpp"
#include "tune/text/text.hpp"

namespace {

/** A number of up to 32 bits without a sign, decimal or with 0x in front; nothing for another text.
 */
std::optional<std::uint32_t> to_number(std::string_view text) {
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    text.remove_prefix(hexadecimal ? 2 : 0);
    std::uint32_t number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

/** The code for a delay such as "d+5". */
std::optional<std::uint32_t> parse_lane_code(std::string_view text) {
    if (!text.starts_with("d+") && !text.starts_with("d-")) {
        return to_number(text);
    }
    const std::optional<std::uint32_t> delay = to_number(text.substr(2));
    if (!delay || *delay > static_cast<std::uint32_t>(most_delay)) {
        return std::nullopt;
    }
    return text[1] == '+' ? upwards + *delay : *delay;
}

std::optional<std::uint32_t> key_of(const knob& k, std::uint32_t code) {
    for (const auto& [key, its_code] : key_map(k)) {
        if (its_code == code) {
            return key;
        }
    }
    return std::nullopt;
}

std::optional<std::uint32_t> to_mapped_code(const knob& k, std::string_view text) {
    constexpr std::string_view raw = "raw:";
    if (text.starts_with(raw)) {
        const std::optional<std::uint32_t> code = to_number(text.substr(raw.size()));
        return code && !key_of(k, *code) ? code : std::nullopt;
    }
    const std::optional<std::uint32_t> key = to_number(text);
    const auto entry = key ? key_map(k).find(*key) : key_map(k).end();
    return entry == key_map(k).end() ? std::nullopt : std::optional(entry->second);
}

std::uint32_t to_code(const knob& k, std::string_view text) {
    const std::optional<std::uint32_t> code = k.kind == knob_kind::lane ? parse_lane_code(text)
                                              : k.kind == knob_kind::mapped
                                                  ? to_mapped_code(k, text)
                                                  : to_number(text);
    if (!code || *code > k.most() || (k.kind == knob_kind::file && *code < k.least())) {
        std::string hint;
        if (text.starts_with('+') || text.starts_with('-')) {
            hint = "; a step has no place here";
        } else if (k.kind == knob_kind::mapped) {
            hint = ", or raw:N for a code that none of these has, 0 to " + std::to_string(k.most());
        }
        throw mistake(in_quotes(text) + " is no value of " + k.name() + ", which takes " +
                      legal_values(k) + hint);
    }
    return *code;
}

[[noreturn]] void refuse_set(const knob& k, const std::string& what) {
    throw mistake(k.name() + " takes " + std::to_string(k.lanes.size()) +
                  " values in braces, '{V,...}', in quotes on a command line; " + what);
}

} // namespace

std::vector<std::uint32_t> parse_value(const knob& k, std::string_view text) {
    if (k.kind != knob_kind::set) {
        return {to_code(k, text)};
    }
    if (!text.starts_with('{') || !text.ends_with('}')) {
        refuse_set(k, "there are no braces");
    }
    text = text.substr(1, text.size() - 2);
    const auto count = static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + 1;
    if (count != k.lanes.size()) {
        refuse_set(k, "there are " + std::to_string(count));
    }
    std::vector<std::uint32_t> codes;
    for (const knob* lane : k.lanes) {
        const std::size_t comma = std::min(text.find(','), text.size());
        codes.push_back(to_code(*lane, without_blanks(text.substr(0, comma))));
        text.remove_prefix(std::min(comma + 1, text.size()));
    }
    return codes;
}

std::string to_text(const knob& k, std::uint32_t code) {
    if (k.kind == knob_kind::mapped) {
        const std::optional<std::uint32_t> key = key_of(k, code);
        if (!key) {
            return std::string("raw:") + std::to_string(code);
        }
        code = *key;
    }
    const bool whole_word =
        k.in_register() && k.most() == std::numeric_limits<std::uint32_t>::max();
    if (whole_word) {
        return hexadecimal(code, 8);
    }
    return std::to_string(code);
}

std::string to_text(const knob& k, const std::vector<std::uint32_t>& codes) {
    if (k.kind != knob_kind::set) {
        return to_text(k, codes.front());
    }
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < codes.size(); ++i) {
        texts.push_back(to_text(*k.lanes[i], codes[i]));
    }
    return std::string("{") + joined(texts, ",") + "}";
}

std::string to_delay(std::uint32_t code) {
    if (code >= upwards) {
        return std::string("d+") + std::to_string(code - upwards);
    }
    return std::string("d-") + std::to_string(code);
}

std::string to_reading(const knob& k, std::uint32_t code) {
    return k.kind == knob_kind::lane ? to_delay(code) : to_text(k, code);
}

std::string to_line(const knob& k, const std::vector<std::uint32_t>& codes) {
    std::string line = k.name() + " = " + to_text(k, codes);
    if (k.kind != knob_kind::set && k.kind != knob_kind::lane) {
        return line;
    }
    std::vector<std::string> delays;
    std::transform(codes.begin(), codes.end(), std::back_inserter(delays), to_delay);
    return line + " # " + joined(delays, " ");
}

std::string legal_values(const knob& k) {
    switch (k.kind) {
    case knob_kind::mapped: {
        std::vector<std::string> keys;
        for (const auto& [key, code] : key_map(k)) {
            keys.push_back(std::to_string(key));
        }
        return joined(keys, ", ");
    }
    case knob_kind::set:
        return std::string("{") + std::to_string(k.lanes.size()) + " values}";
    case knob_kind::regulator:
        return "microvolts within the regulator's limits";
    case knob_kind::lane:
        return std::to_string(k.least()) + " to " + std::to_string(k.most()) + ", d-63 to d+63";
    default:
        return std::to_string(k.least()) + " to " + std::to_string(k.most());
    }
}
