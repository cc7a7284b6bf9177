#include "tune/tuning.hpp"

#include <cerrno>
#include <cstring>
#include <map>
#include <string_view>
#include <tuple>

#include <fcntl.h>
#include <unistd.h>

#include "tune/mistake.hpp"
#include "tune/value_text.hpp"

namespace {

[[noreturn]] void refuse_file(const std::string& path) {
    throw mistake(path + ": " + std::strerror(errno));
}

/** The register and the bits, or the file, in which two lines may meet. */
struct claimed_bits {
    const knob* target;
    std::string where;
};

/** Whether two knobs of one place share bits: every lane of a register has a word of its own. */
bool meet(const knob& a, const knob& b) {
    if (&a == &b) {
        return true;
    }
    return a.kind != knob_kind::lane &&
           ((a.field->mask() << a.field->shift()) & (b.field->mask() << b.field->shift())) != 0;
}

void check_bits(const std::vector<tuning_line>& lines) {
    std::multimap<const void*, claimed_bits> claimed;
    for (const tuning_line& line : lines) {
        for (const knob* part : line.target->parts()) {
            if (part->kind == knob_kind::read_only) {
                continue; // to be looked at: these may overlap
            }
            const void* const place =
                part->in_register() ? static_cast<const void*>(part->reg) : part;
            const auto [begin, end] = claimed.equal_range(place);
            for (auto other = begin; other != end; ++other) {
                if (meet(*part, *other->second.target)) {
                    throw mistake(line.where + ": " + line.target->name() +
                                  " has bits that are set already at " + other->second.where);
                }
            }
            claimed.insert({place, {part, line.where}});
        }
    }
}

tuning_line parse_line(const knobs& all, std::string_view text) {
    if (text.find('\0') != std::string_view::npos) {
        throw mistake("a NUL character");
    }
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        throw mistake("'" + std::string(text.substr(0, 40)) + "' is not NAME = VALUE");
    }
    const knob& target = all.named(std::string(without_blanks(text.substr(0, equals))));
    return {&target, parse_value(target, without_blanks(text.substr(equals + 1))), ""};
}

} // namespace

std::string read_text(const std::string& path) {
    const int fd = path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd == -1) {
        refuse_file(path);
    }
    std::string text;
    char buffer[4096];
    ssize_t size = 0;
    while ((size = read(fd, buffer, sizeof buffer)) > 0) {
        text.append(buffer, static_cast<std::size_t>(size));
    }
    if (size < 0) {
        refuse_file(path);
    }
    close(fd);
    return text;
}

std::string read_text(const std::string& path, const std::string& otherwise) {
    try {
        return read_text(path);
    } catch (const mistake&) {
        return otherwise;
    }
}

std::vector<tuning_line> parse_tuning(const knobs& all, const std::string& text,
                                      const std::string& where) {
    std::vector<tuning_line> lines;
    std::string_view rest = text;
    for (int number = 1; !rest.empty(); ++number) {
        const std::string_view whole = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(whole.size() + 1, rest.size()));
        const std::string_view line = without_blanks(whole.substr(0, whole.find('#')));
        if (line.empty()) {
            continue;
        }
        const std::string place = where + ":" + std::to_string(number);
        try {
            lines.push_back(parse_line(all, line));
        } catch (const mistake& problem) {
            throw mistake(place + ": " + problem.what());
        }
        lines.back().where = place;
    }
    check_bits(lines);
    return lines;
}

std::vector<setting> settings_of(const std::vector<tuning_line>& lines) {
    std::vector<setting> settings;
    for (const tuning_line& line : lines) {
        const std::vector<const knob*> parts = line.target->parts();
        for (std::size_t i = 0; i < parts.size(); ++i) {
            settings.push_back({parts[i], line.codes[i]});
        }
    }
    return settings;
}
