#pragma once

#include <stdexcept>

/** What ends a command with status 2: a mistake in its words or its file, no lock, no node. */
class mistake : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};
