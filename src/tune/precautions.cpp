#include "tune/precautions.hpp"

#include <fstream>
#include <sstream>

#include <sys/mman.h>
#include <unistd.h>

void take_precautions() {
    sync();
    mlockall(MCL_CURRENT); // not what comes later: who may lock only so much could then get no more
    std::ofstream("/proc/self/oom_score_adj") << "-1000";
}

std::vector<std::string> writable_mounts(const std::string& mounts) {
    std::vector<std::string> found;
    std::istringstream lines(mounts);
    std::string device;
    std::string folder;
    std::string kind;
    std::string options;
    for (std::string line; std::getline(lines, line);) {
        std::istringstream(line) >> device >> folder >> kind >> options;
        options += ',';
        if (device.starts_with("/dev/") && options.starts_with("rw,")) {
            found.push_back(device + " on " + folder);
        }
    }
    return found;
}
