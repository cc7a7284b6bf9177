#pragma once

#include <filesystem>
#include <string>

#include "support/temp_dir.hpp"
#include "support/text_file.hpp"

/** A regulator's directory: at first 1000000 microvolts, with limits of 800000 and 1300000. */
class regulator {
public:
    regulator() {
        set("microvolts", "1000000\n");
        set("min_microvolts", "800000\n");
        set("max_microvolts", "1300000\n");
    }

    /** Without a trailing slash. */
    std::string path() const { return m_dir.path().string(); }

    std::string file(const std::string& name) const { return m_dir.file(name); }

    void set(const std::string& name, const std::string& text) const {
        write_text(file(name), text);
    }

    void remove(const std::string& name) const { std::filesystem::remove(file(name)); }

    /** The exact contents of "microvolts". */
    std::string microvolts() const { return text_of(file("microvolts")); }

private:
    temp_dir m_dir;
};
