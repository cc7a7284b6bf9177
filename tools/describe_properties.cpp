#include <fstream>
#include <iostream>
#include <sstream>
#include <string>

#include "platform/register_properties.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property/property_regulator_voltage.hpp"
#include "tune/knob/facts.hpp"
#include "tune/knob/knobs.hpp"

/*
 * Writes what the program knows of its properties: a page for readers, and a table for the
 * completions of the shells, which so need to ask no program.
 */

namespace {

constexpr const char* introduction = R"(# Properties

Every property of `brisel`, in the groups and in the order of `brisel -l`. This page is written by the
program's own objects: see `tools/CMakeLists.txt`.

- *field*: a range of bits of a register. A number beyond the legal values is refused, a step beyond
  them is clamped.
- *mapped field*: takes the numbers listed and no other; the code that stands for each in the
  register's bits is in brackets.
- *read-only field*: cannot be written.
- *DQ delay*: 64 + n is a delay of n upwards, n below 64 one downwards, 0 and 64 are none. A step moves
  the delay. Every write sets bit 7 as well.
- *set*: several DQ delays as one value, in braces.
- *file*: a number in a file, limited to the legal values.
- *regulator*: a voltage, rounded up to a multiple of 10000 microvolts, within the regulator's own
  limits; or a percentage of the present one.

`A with S in T` is the word at address A while the select register at address T holds S.
)";

/** The text with what Markdown would take for its own in a table marked. */
std::string escaped(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '*' || c == '|' || c == '<' || c == '_' || c == '\\') {
            result += '\\';
        }
        result += c;
    }
    return result;
}

/** What `brisel` takes: more than a tuning file does. */
std::string legal_values_of(const knob& k, const knob_facts& facts) {
    switch (k.kind) {
    case knob_kind::mapped: {
        std::string legal;
        for (const auto& [key, code] : key_map(k)) {
            legal += (legal.empty() ? "" : ", ") + std::to_string(key) + " (" +
                     std::to_string(code) + ")";
        }
        return legal;
    }
    case knob_kind::lane:
        return "0 to " + std::to_string(k.most());
    case knob_kind::set:
        return facts.legal + ", or one for all";
    case knob_kind::regulator: {
        const auto& regulator = dynamic_cast<property_regulator_voltage&>(*k.property_of);
        std::ostringstream legal;
        legal << "microvolts, or " << regulator.min_percent() << "% to " << regulator.max_percent()
              << "%";
        return legal.str();
    }
    default:
        return facts.legal;
    }
}

std::string place_of(const knob& k, const knob_facts& facts) {
    if (!k.in_register()) {
        return facts.address;
    }
    const bool one_bit = k.field->mask() == 1;
    return facts.address + ", " +
           (one_bit ? "bit " + std::to_string(k.field->shift()) : "bits " + facts.bits);
}

void write_reference(std::ostream& out, const knobs& all) {
    out << introduction;
    std::string group;
    for (const knob& k : all.all()) {
        if (k.group != group) {
            group = k.group;
            out << "\n## " << group << "\n\n"
                << "| property | kind | legal values | meaning | place |\n"
                << "|---|---|---|---|---|\n";
        }
        const knob_facts facts = facts_of(k);
        out << "| `" << k.name() << "` | " << facts.kind << " | " << legal_values_of(k, facts)
            << " | " << escaped(facts.help) << " | " << escaped(place_of(k, facts)) << " |\n";
    }
}

/** The numbers that a help text explains: "0=off;1=on" of "0=off, 1=on", and nothing of other
 * texts. */
std::string explained_values(const std::string& help) {
    std::string values;
    std::istringstream items(help);
    for (std::string item; std::getline(items >> std::ws, item, ',');) {
        const std::size_t digits = item.find_first_not_of("0123456789");
        if (digits == 0 || digits == std::string::npos || item[digits] != '=') {
            return "-";
        }
        values += (values.empty() ? "" : ";") + item;
    }
    return values;
}

/** The keys of a mapped field, with these between them. */
std::string keys_of(const knob& mapped, const std::string& separator) {
    std::string text;
    for (const auto& [key, code] : key_map(mapped)) {
        text += (text.empty() ? "" : separator) + std::to_string(key);
    }
    return text;
}

/**
 * What completion offers, a line each: name, kind, range, meaning, and values where they are few.
 * No column is empty, since a shell that splits a line would not see it.
 */
void write_completion(std::ostream& out, const knobs& all) {
    out << "-h\toption\t-\thelp\t-\n"
           "-i\toption\t-\tinteractive mode (not supported yet)\t-\n"
           "-l\toption\t-\tlist all properties\t-\n"
           "-r\toption\t-\tprint the value alone\t-\n"
           "-x\toption\t-\thexadecimal numbers\t-\n";
    for (const knob& k : all.all()) {
        const knob_facts facts = facts_of(k);
        const bool mapped = k.kind == knob_kind::mapped;
        out << k.name() << '\t' << facts.kind << '\t'
            << (mapped ? keys_of(k, ", ") : legal_values_of(k, facts)) << '\t' << facts.help << '\t'
            << (mapped ? keys_of(k, ";") : explained_values(facts.help)) << '\n';
    }
}

} // namespace

int main(int argc, char* argv[]) try {
    if (argc != 3) {
        std::cerr << "describe_properties REFERENCE COMPLETION: writes the two files\n";
        return 2;
    }
    std::ofstream reference(argv[1]);
    std::ofstream completion(argv[2]);
    platform_register_properties();
    const knobs all;
    write_reference(reference, all);
    write_completion(completion, all);
    property_group::free_all();
    property::free_all();
    return reference.flush() && completion.flush() ? 0 : 1;
} catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
}
