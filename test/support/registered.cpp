// For tests that look at properties: everything is registered for the length of the program, as its
// main does.

#include <memory>

#include <gtest/gtest.h>

#include "platform/register_properties.hpp"
#include "property/property.hpp"
#include "property/property_group.hpp"

namespace {

class registration : public testing::Environment {
public:
    void SetUp() override { platform_register_properties(); }
    void TearDown() override {
        property_group::free_all();
        property::free_all();
    }
};
[[maybe_unused]] const auto* const registered =
    testing::AddGlobalTestEnvironment(std::make_unique<registration>().release());

} // namespace
