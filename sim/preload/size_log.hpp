#pragma once

#include <string>

/**
 * What would be left of the files of the machine if the board died: a line for each event.
 *
 *     open DEVICE INODE SIZE    it was opened for writing, and had so many bytes
 *     sync DEVICE INODE SIZE    so many bytes were put on the disk
 *
 * All numbers are decimal. Keeps no descriptor open, and leaves errno as it is.
 */
class size_log {
public:
    /** `folder` is the board's; the log is its file "synced", made by the first event. */
    explicit size_log(const std::string& folder);

    /** Notes what was opened, or was found open, if it is a regular file that can be written. */
    void opened(int descriptor) const noexcept;

    /** Calls `sync`, which puts a file on the disk, and notes the file's size if that succeeds. */
    template <typename Sync>
    int synced(int descriptor, Sync sync) const noexcept {
        const std::string line = line_for("sync", descriptor); // not what is added in the meantime
        const int result = sync(descriptor);
        if (result == 0) {
            add(line);
        }
        return result;
    }

private:
    static std::string line_for(const char* event, int descriptor);
    void add(const std::string& line) const;

    std::string m_file;
};
