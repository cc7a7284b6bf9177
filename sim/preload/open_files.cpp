#include "preload/open_files.hpp"

namespace sim {

open_files::~open_files() {
    for (std::atomic<std::string*>& path : m_paths) {
        delete path.load();
    }
}

bool open_files::remember(int descriptor, const std::string& path) {
    const auto place = static_cast<std::size_t>(descriptor);
    if (place >= places) {
        return false;
    }
    delete m_paths[place].exchange(new std::string(path));
    return true;
}

const std::string* open_files::path_of(int descriptor) const {
    const auto place = static_cast<std::size_t>(descriptor);
    return place < places ? m_paths[place].load() : nullptr;
}

std::unique_ptr<std::string> open_files::forget(int descriptor) {
    const auto place = static_cast<std::size_t>(descriptor);
    return std::unique_ptr<std::string>(place < places ? m_paths[place].exchange(nullptr)
                                                       : nullptr);
}

} // namespace sim
