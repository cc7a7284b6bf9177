#pragma once

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "output/output_stream.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"
#include "support/captured_stream.hpp"
#include "support/fake_memory.hpp"

/** A test on fresh fake memory, with empty registries, decimal numbers and caught messages. */
class hardware_test : public testing::Test {
protected:
    hardware_test() {
        fake_memory::reset();
        property::m_number_mode = 0;
    }
    ~hardware_test() override {
        EXPECT_FALSE(standard_output.bad());
        EXPECT_FALSE(standard_error.bad());
        property_group::free_all();
        property::free_all();
        property::m_number_mode = 0;
    }

    /** What was written to standard error so far. */
    std::string messages() const { return m_cerr.text(); }

    /** What was written to standard output so far. */
    std::string output() const { return m_cout.text(); }

private:
    captured_stream m_cerr{standard_error};
    captured_stream m_cout{standard_output};
};
