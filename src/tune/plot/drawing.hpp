#pragma once

#include <string>
#include <string_view>

/** A picture in SVG, drawn element by element; lengths are in pixels. Styles are classes. */
class drawing {
public:
    /** The width of a character of the text's font, and the distance of two lines. */
    static constexpr int character = 8;
    static constexpr int line = 18;

    /** From the top of a line to the base of its text. */
    static constexpr int base = 13;

    /** A text that begins at a place, on its base line. */
    void text(int x, int y, std::string_view content, std::string_view style = "");

    /** A text with its middle there. The picture does not become larger for it. */
    void text_around(int x, int y, std::string_view content, std::string_view style = "");

    /** A cell, with a text that a browser shows above it. */
    void cell(int x, int y, int width, int height, std::string_view style, std::string_view hover);

    void path(std::string_view style, const std::string& path_data);

    /** Moves the lower right corner out so that there is this place, too. */
    void reach(int x, int y);

    /** The whole picture. @param title what it is, for who does not see it */
    std::string svg(std::string_view title, std::string_view style_sheet) const;

private:
    std::string m_elements;
    int m_width = 0;
    int m_height = 0;
};
