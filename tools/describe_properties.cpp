#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/register_properties.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property_facts.hpp"

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

void write_reference(std::ostream& out) {
    out << introduction;
    for (const auto& [group_name, group] : property_group::get_groups()) {
        out << "\n## " << group_name << "\n\n"
            << "| property | kind | legal values | meaning | place |\n"
            << "|---|---|---|---|---|\n";
        for (const auto& [name, p] : group->m_properties) {
            const property_facts facts = describe(*p);
            out << "| `" << name << "` | " << facts.kind << " | " << facts.legal << " | "
                << escaped(facts.meaning) << " | " << escaped(facts.place) << " |\n";
        }
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

std::string joined(const std::vector<unsigned int>& numbers, const std::string& separator) {
    std::string text;
    for (const unsigned int number : numbers) {
        text += (text.empty() ? "" : separator) + std::to_string(number);
    }
    return text;
}

/**
 * What completion offers, a line each: name, kind, range, meaning, and values where they are few.
 * No column is empty, since a shell that splits a line would not see it.
 */
void write_completion(std::ostream& out) {
    out << "-h\toption\t-\thelp\t-\n"
           "-i\toption\t-\tinteractive mode (not supported yet)\t-\n"
           "-l\toption\t-\tlist all properties\t-\n"
           "-r\toption\t-\tprint the value alone\t-\n"
           "-x\toption\t-\thexadecimal numbers\t-\n";
    for (const auto& [group_name, group] : property_group::get_groups()) {
        for (const auto& [name, p] : group->m_properties) {
            const property_facts facts = describe(*p);
            const bool mapped = !facts.keys.empty();
            out << name << '\t' << facts.kind << '\t'
                << (mapped ? joined(facts.keys, ", ") : facts.legal) << '\t' << facts.meaning
                << '\t' << (mapped ? joined(facts.keys, ";") : explained_values(facts.meaning))
                << '\n';
        }
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
    write_reference(reference);
    write_completion(completion);
    property_group::free_all();
    property::free_all();
    return reference.flush() && completion.flush() ? 0 : 1;
} catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
}
