#pragma once

#include <string>
#include <utility>
#include <vector>

#include "property/property.hpp"

/** A property that keeps a text, behaves as the test says, and logs every call. */
class fake_property : public property {
public:
    explicit fake_property(const std::string& property_name, std::string text = "")
        : property(property_name), m_text(std::move(text)) {}
    ~fake_property() override { log.push_back("delete " + name); }

    bool set(const std::string& value) override {
        log.push_back("set " + name + " " + value);
        if (m_writable) {
            m_text = value;
        }
        return m_writable;
    }

    bool get(std::string& value) override {
        log.push_back("get " + name);
        value += m_text; // added, so that a test sees whether the text was empty
        return m_readable;
    }

    std::string m_text;
    bool m_readable = true; ///< false: `get` fails, after it has filled the text
    bool m_writable = true;

    /** The calls to all of these, such as "set a 5". Cleared by the test. */
    inline static std::vector<std::string> log;
};
