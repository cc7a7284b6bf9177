#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "model/device_layout.hpp"

/** What a page reads; empty where no register lies. */
using page_content = std::array<std::optional<std::uint32_t>, page_words>;

enum class access_kind { none, read, write };

/** What a program did with a mapped page. */
struct page_use {
    access_kind kind;
    std::uint32_t address; ///< physical
    std::uint32_t word;    ///< read or written
    std::string violation; ///< why this was not a single access to one word; empty when it was
};

/**
 * The mapped page of the device node, one at a time, watched by way of its protection.
 *
 * The page begins without any permission. A read faults once and makes it readable; a write faults
 * a second time at the same address and makes it writable, so that it is seen even if it changes
 * nothing. Where the processor can be stopped after the access, the page is then closed again and
 * every further access is seen; elsewhere only one that needs another permission, or that leaves
 * another word changed. An access where no register lies ends the process by SIGBUS.
 *
 * SIGSEGV and SIGTRAP are taken over while a page is mapped; what is not about the page goes on to
 * the handlers that were there before.
 */
void* map_device_page(std::uint32_t page, const page_content& content);

/** True for the address of the page that is mapped now. */
bool is_device_page(const void* address);

/** True while a page is mapped. */
bool is_device_page_mapped();

/** Takes the page away and says what was done with it. */
page_use unmap_device_page();
