#include <string>

#include <unistd.h>

#include "base/output_stream.hpp"
#include "cli/actions.hpp"
#include "cli/exit_status.hpp"
#include "platform/register_properties.hpp"
#include "process/instance_lock.hpp"
#include "process/standard_descriptors.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"

namespace {

/** Reads or writes the property named at `optind`; words after a value are ignored. */
exit_status access_operand(int argc, char* argv[]) {
    if (argc - optind < 1) {
        standard_output.print_line(".." + std::to_string(optind));
        print_usage();
        return exit_status::success;
    }
    const std::string name = argv[optind];
    if (optind < argc - 1) {
        return write_property(name, argv[optind + 1]);
    }
    return read_property(name);
}

/** Acts on the first option; every other word is an operand, whatever it looks like. */
exit_status act(int argc, char* argv[]) {
    const int option = getopt(argc, argv, ":xhilr:");
    if (option == 'h' || (option == -1 && argc <= 1)) {
        print_usage();
        return exit_status::usage_shown;
    }
    switch (option) {
    case 'i':
        print("Not supported yet.\n");
        return exit_status::not_supported;
    case 'l':
        return list_properties();
    case 'r':
        return raw_read_property(optarg);
    case 'x':
        property::m_number_mode = 1;
        break;
    default: // no option, or an unknown one: the first word is the property's name
        optind = 1;
        break;
    }
    return access_operand(argc, argv);
}

} // namespace

int main(int argc, char* argv[]) {
    open_closed_standard_descriptors();
    if (!take_instance_lock()) {
        return static_cast<int>(exit_status::lock_failed);
    }
    platform_register_properties();
    const exit_status status = act(argc, argv);
    property_group::free_all();
    property::free_all();
    release_instance_lock();
    return static_cast<int>(status);
}
