#include "tune/plot/row_picture.hpp"

#include <algorithm>

#include "tune/plot/signs.hpp"

std::size_t stride_for(std::size_t points, std::size_t room) {
    return (points + room - 1) / room;
}

std::string row_picture(const sweep_grid& grid, std::size_t row, std::size_t stride,
                        const canvas& on, std::size_t pitch) {
    std::string picture;
    std::string_view color;
    for (std::size_t column = 0; column < grid.columns.size(); column += stride) {
        if (column != 0) {
            picture.append(pitch - 1, ' ');
        }
        const point_result* shown = &grid.cell(row, column);
        const std::size_t end = std::min(column + stride, grid.columns.size());
        for (std::size_t i = column + 1; i < end; ++i) {
            shown = &worse(*shown, grid.cell(row, i));
        }
        const sign& its = sign_of(*shown);
        if (on.color && color != its.color) {
            color = its.color;
            picture.append("\033[0;").append(color).append("m");
        }
        if (its.ascii.empty()) {
            picture += digit_of(*shown);
        } else {
            picture += on.utf8 ? its.utf8 : its.ascii;
        }
    }
    if (on.color) {
        picture += "\033[0m";
    }
    return picture;
}
