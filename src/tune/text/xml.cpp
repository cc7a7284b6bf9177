#include "tune/text/xml.hpp"

std::string xml_text(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        switch (c) {
        case '&':
            result += "&amp;";
            break;
        case '<':
            result += "&lt;";
            break;
        case '>':
            result += "&gt;";
            break;
        case '"':
            result += "&quot;";
            break;
        default:
            result += c;
        }
    }
    return result;
}

std::string element(const std::string& start, std::string_view text) {
    return "<" + start + ">" + xml_text(text) + "</" + start.substr(0, start.find(' ')) + ">";
}
