#pragma once

#include <initializer_list>

#include <gmock/gmock.h>

#include "reg/reg_bitmask.hpp"
#include "reg/reg_info.hpp"

/** A register without fields that is owned by its test: for the calls that a field makes on it. */
class mock_register : public reg_info {
public:
    mock_register() : reg_info("register", 0, std::initializer_list<reg_bitmask*>{}, false) {}

    MOCK_METHOD(void, _read, (), (override));
    MOCK_METHOD(void, commit, (), (override));
    MOCK_METHOD(unsigned int, load, (reg_subval * field), (override));
    MOCK_METHOD(void, store, (reg_subval * field, unsigned int word), (override));
};
