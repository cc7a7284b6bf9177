#include <fstream>
#include <iostream>
#include <string>

#include "platform/register_properties.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "property_facts.hpp"

/*
 * Writes what the program knows of its properties: a page for readers, and the legal values of the
 * mapped fields for completion, which the program's own list does not show.
 */

namespace {

constexpr const char* introduction = R"(# Properties

Every property of `brisel`, in the groups and in the order of `brisel -l`. This page is written by the
program's own objects: see `docs/CMakeLists.txt`.

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

void write_values(std::ostream& out) {
    for (const auto& [name, p] : property::properties) {
        const property_facts facts = describe(*p);
        if (facts.keys.empty()) {
            continue;
        }
        out << name;
        for (const unsigned int key : facts.keys) {
            out << ' ' << key;
        }
        out << '\n';
    }
}

} // namespace

int main(int argc, char* argv[]) {
    if (argc != 3) {
        std::cerr << "describe_properties REFERENCE VALUES: writes the two files\n";
        return 2;
    }
    std::ofstream reference(argv[1]);
    std::ofstream values(argv[2]);
    platform_register_properties();
    write_reference(reference);
    write_values(values);
    property_group::free_all();
    property::free_all();
    return reference.flush() && values.flush() ? 0 : 1;
}
