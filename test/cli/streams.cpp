#include "cli/streams.hpp"

#include <array>

#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

namespace {

struct stream_ends {
    descriptor reader;
    descriptor writer;
};

stream_ends open_pipe() {
    // Packets: each read gives what one write wrote.
    std::array<int, 2> ends{-1, -1};
    const int failed = pipe2(ends.data(), O_DIRECT | O_CLOEXEC);
    return {descriptor(failed == 0 ? ends[0] : -1), descriptor(failed == 0 ? ends[1] : -1)};
}

std::optional<stream_ends> open_terminal(unsigned short columns) {
    const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
    int master = -1;
    int slave = -1;
    if (openpty(&master, &slave, nullptr, nullptr, &size) != 0) {
        return std::nullopt;
    }
    fcntl(master, F_SETFD, FD_CLOEXEC);
    fcntl(slave, F_SETFD, FD_CLOEXEC);
    return stream_ends{descriptor(master), descriptor(slave)};
}

stream_result run_into(program_start program, stream_ends ends) {
    const descriptor in("/dev/null", O_RDONLY);
    program.in = in;
    program.out = ends.writer;
    program.err = ends.writer;
    const pid_t process = start(program);
    ends.writer.close();
    stream_result result{};
    std::array<char, 4096> part{};
    // A terminal that nobody has open any more gives an error in place of an end.
    for (ssize_t size; (size = read(ends.reader, part.data(), part.size())) > 0;) {
        result.parts.emplace_back(part.data(), static_cast<std::size_t>(size));
    }
    result.status = wait_for(process);
    return result;
}

} // namespace

std::string stream_result::text() const {
    std::string whole;
    for (const std::string& part : parts) {
        whole += part;
    }
    return whole;
}

stream_result run_into_pipe(program_start program) {
    return run_into(std::move(program), open_pipe());
}

std::optional<stream_result> run_in_terminal(program_start program, unsigned short columns) {
    std::optional<stream_ends> terminal = open_terminal(columns);
    if (!terminal) {
        return std::nullopt;
    }
    return run_into(std::move(program), std::move(*terminal));
}

int run_without_readers(program_start program) {
    const descriptor in("/dev/null", O_RDONLY);
    stream_ends out = open_pipe();
    stream_ends err = open_pipe();
    out.reader.close();
    err.reader.close();
    program.in = in;
    program.out = out.writer;
    program.err = err.writer;
    return wait_for(start(program));
}
