#pragma once

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "property/property.hpp"
#include "property/property_group.hpp"
#include "support/fake_memory.hpp"
#include "support/fake_streams.hpp"

/**
 * A test on fresh fake memory, with empty registries, decimal numbers and caught messages. It fails
 * when anything was written that it did not ask for.
 */
class hardware_test : public testing::Test {
protected:
    hardware_test() {
        fake_memory::reset();
        fake_streams::reset();
        property::m_number_mode = 0;
    }
    ~hardware_test() override {
        EXPECT_EQ(fake_streams::unseen(), "");
        EXPECT_FALSE(standard_output.bad());
        EXPECT_FALSE(standard_error.bad());
        property_group::free_all();
        property::free_all();
        property::m_number_mode = 0;
    }

    /** What was written to standard error so far. */
    static std::string messages() { return fake_streams::text(standard_stream::error); }

    /** What was written to standard output so far. */
    static std::string output() { return fake_streams::text(standard_stream::output); }
};
