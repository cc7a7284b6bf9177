#pragma once

#include <string>

/** A log that is on its disk, or on its way to another machine, before the next thing is done. */
class log_writer {
public:
    /**
     * @param path      a file; "-" for standard output
     * @param continued whether the file is to be there, or not to be there
     * @param lead      seconds that a line needs to leave the board, where it goes to no disk
     * @throw mistake when the file cannot be opened, or standard output is a terminal
     */
    log_writer(const std::string& path, bool continued, double lead);
    ~log_writer();
    log_writer(const log_writer&) = delete;
    log_writer& operator=(const log_writer&) = delete;

    /** Writes lines, and waits until they are on the disk. @throw mistake when they cannot be
     * written */
    void write(const std::string& lines);

    /** The same, and without a disk waits until they must have left. */
    void write_before_a_risk(const std::string& lines);

private:
    const std::string m_name;
    const double m_lead;
    int m_fd;
    bool m_has_disk = true;
};
