#include "cli/actions.hpp"

#include "base/output_stream.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"

namespace {

void report_status(const std::string& what) {
    standard_error.print_line("BRISEL: " + what);
}

void report_no_such_property() {
    standard_error.print_line("No such property registered.");
}

} // namespace

void print(const char* text) {
    standard_output.print(text);
}

void print_usage() {
    for (const char* line : {"brisel [options] [<property> [value if write]]", //
                             "options:",                                       //
                             "\t-h            : help",                         //
                             "\t-i            : interactive mode",             //
                             "\t-l            : list all properties",          //
                             "\t-x            : show hex value (default decimal)"}) {
        standard_output.print_line(line);
    }
}

exit_status list_properties() {
    for (const auto& [group_name, group] : property_group::get_groups()) {
        standard_output.print_line(group_name + " :");
        for (const auto& [name, member] : group->m_properties) {
            std::string help;
            member->get_help(help);
            standard_output.print_line("\t" + name + " : " + help);
        }
    }
    return exit_status::success;
}

exit_status read_property(const std::string& name) {
    property* found = property::get_property(name);
    if (found == nullptr) {
        report_no_such_property();
        return exit_status::success;
    }
    std::string value;
    const bool done = found->get(value);
    standard_output.print_line(value);
    if (!done) {
        // No blank before "failed.": the line has always looked like this, and scripts match it.
        report_status("get " + name + "failed.");
        return exit_status::read_failed;
    }
    report_status("get " + name + " := " + value);
    return exit_status::success;
}

exit_status write_property(const std::string& name, const std::string& value) {
    property* found = property::get_property(name);
    if (found == nullptr) {
        report_no_such_property();
        return exit_status::success;
    }
    const bool done = found->set(value);
    report_status("set " + name + " := " + value + (done ? "" : " failed."));
    return done ? exit_status::success : exit_status::write_failed;
}

exit_status raw_read_property(const std::string& name) {
    property* found = property::get_property(name);
    std::string value;
    if (found != nullptr && found->get(value)) {
        standard_output.print_line(value);
    } else {
        report_no_such_property();
    }
    return exit_status::success;
}
