#include "tune/plot/drawing.hpp"

#include <algorithm>
#include <utility>

#include "tune/text/xml.hpp"

namespace {

constexpr int border = 16;

/** ` name="12"`, for each. */
std::string attributes(std::initializer_list<std::pair<const char*, int>> all) {
    std::string text;
    for (const auto& [name, value] : all) {
        text.append(" ").append(name).append("=\"").append(std::to_string(value)).append("\"");
    }
    return text;
}

std::string style_attribute(std::string_view style) {
    std::string text;
    if (!style.empty()) {
        text.append(" class=\"").append(style).append("\"");
    }
    return text;
}

} // namespace

void drawing::text(int x, int y, std::string_view content, std::string_view style) {
    m_elements +=
        element("text" + attributes({{"x", x}, {"y", y}}) + style_attribute(style), content) + "\n";
    reach(x + static_cast<int>(content.size()) * character, y);
}

void drawing::text_around(int x, int y, std::string_view content, std::string_view style) {
    m_elements += element("text text-anchor=\"middle\"" + attributes({{"x", x}, {"y", y}}) +
                              style_attribute(style),
                          content) +
                  "\n";
}

void drawing::cell(int x, int y, int width, int height, std::string_view style,
                   std::string_view hover) {
    m_elements += "<rect" + attributes({{"x", x}, {"y", y}, {"width", width}, {"height", height}}) +
                  style_attribute(style) + ">" + element("title", hover) + "</rect>\n";
    reach(x + width, y + height);
}

void drawing::path(std::string_view style, const std::string& path_data) {
    m_elements += "<path" + style_attribute(style) + " d=\"" + path_data + "\"/>\n";
}

void drawing::reach(int x, int y) {
    m_width = std::max(m_width, x + border);
    m_height = std::max(m_height, y + border);
}

std::string drawing::svg(std::string_view title, std::string_view style_sheet) const {
    const std::string size = attributes({{"width", m_width}, {"height", m_height}});
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" + size + " viewBox=\"0 0 " +
           std::to_string(m_width) + " " + std::to_string(m_height) + "\" role=\"img\">\n" +
           element("title", title) + "\n<style>" + std::string(style_sheet) + "</style>\n<rect" +
           size + style_attribute("paper") + "/>\n" + m_elements + "</svg>\n";
}
