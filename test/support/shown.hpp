#pragma once

#include <string>

#include <gtest/gtest.h>

#include "property/property.hpp"

/** What a property shows, or "(none)" when `get` fails; it then has to leave the text alone. */
inline std::string shown(property& p) {
    std::string text = "(none)";
    const bool done = p.get(text);
    EXPECT_EQ(done, text != "(none)");
    return text;
}
