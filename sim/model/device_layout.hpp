#pragma once

#include <cstddef>
#include <cstdint>

/** The device node is mapped a page at a time. */
constexpr std::uint32_t page_bytes = 4096;
constexpr std::size_t page_words = page_bytes / 4;

/** The physical address of the page that `address` lies in. */
constexpr std::uint32_t page_of(std::uint32_t address) {
    return address & ~(page_bytes - 1);
}
