#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <system_error>

/** A folder of its own for one test, removed with all that is in it when the object dies. */
class temp_dir {
public:
    temp_dir() : m_path(std::filesystem::temp_directory_path() / "brisel-test-XXXXXX") {
        std::string pattern = m_path.string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), pattern);
        }
        m_path = pattern;
    }
    ~temp_dir() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    temp_dir(const temp_dir&) = delete;
    temp_dir& operator=(const temp_dir&) = delete;

    const std::filesystem::path& path() const { return m_path; }

    /** The full path of something in the folder, whether it exists or not. */
    std::string file(const std::string& name) const { return (m_path / name).string(); }

private:
    std::filesystem::path m_path;
};
