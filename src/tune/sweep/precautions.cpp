#include "tune/sweep/precautions.hpp"

#include <algorithm>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include "tune/text/text.hpp"

namespace {

/** The first word of a line, which is taken away. */
std::string_view take_word(std::string_view& line) {
    const std::string_view word = line.substr(0, line.find(' '));
    line.remove_prefix(std::min(word.size() + 1, line.size()));
    return word;
}

} // namespace

void take_precautions() {
    sync();
    mlockall(MCL_CURRENT); // not what comes later: who may lock only so much could then get no more
    set_oom_score("-1000");
}

void set_oom_score(std::string_view score) {
    const int fd = open("/proc/self/oom_score_adj", O_WRONLY | O_CLOEXEC);
    static_cast<void>(!write(fd, score.data(), score.size())); // who may not set it goes without
    close(fd);
}

std::vector<std::string> writable_mounts(const std::string& mounts) {
    std::vector<std::string> found;
    for (std::string_view line : lines_of(mounts)) {
        const std::string device(take_word(line));
        const std::string folder(take_word(line));
        take_word(line); // the kind
        const std::string options = std::string(take_word(line)) + ",";
        if (device.starts_with("/dev/") && options.starts_with("rw,")) {
            found.push_back(device + " on " + folder);
        }
    }
    return found;
}
