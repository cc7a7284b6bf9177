#include "tune/text/machine.hpp"

#include <ctime>

#include <sys/utsname.h>

#include "tune/text/read_text.hpp"
#include "tune/text/text.hpp"

namespace {

/** A text of the device tree, which ends in a NUL; printable, and empty where there is none. */
std::string in_device_tree(const char* name) {
    const std::string text = read_text(std::string("/proc/device-tree/") + name, "");
    return printable(text.substr(0, text.find('\0')));
}

} // namespace

std::string machine() {
    utsname system{};
    uname(&system);
    const std::string name = std::string(system.nodename) + " (" + system.machine + ")";
    const std::string text =
        in_device_tree("model") + " " + name + " " + in_device_tree("serial-number");
    return std::string(without_blanks(text));
}

std::string utc_time() {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S UTC", &parts);
    return text;
}

std::string boot_id() {
    return std::string(without_blanks(read_text("/proc/sys/kernel/random/boot_id")));
}
