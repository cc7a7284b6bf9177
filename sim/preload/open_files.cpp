#include "preload/open_files.hpp"

open_files::~open_files() {
    for (std::atomic<board_file*>& file : m_files) {
        delete file.load();
    }
}

bool open_files::remember(int descriptor, const board_file& file) {
    const auto place = static_cast<std::size_t>(descriptor);
    if (place >= places) {
        return false;
    }
    delete m_files[place].exchange(new board_file(file));
    return true;
}

const board_file* open_files::find(int descriptor) const {
    const auto place = static_cast<std::size_t>(descriptor);
    return place < places ? m_files[place].load() : nullptr;
}

std::unique_ptr<board_file> open_files::forget(int descriptor) {
    const auto place = static_cast<std::size_t>(descriptor);
    return std::unique_ptr<board_file>(place < places ? m_files[place].exchange(nullptr) : nullptr);
}
