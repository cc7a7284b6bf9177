#pragma once

#include <string>
#include <string_view>

/** A text of printable ASCII as the content of an element or of an attribute in double quotes. */
std::string xml_text(std::string_view text);

/** An element with a text in it: `<name>text</name>`. @param start what is between the brackets */
std::string element(const std::string& start, std::string_view text);
