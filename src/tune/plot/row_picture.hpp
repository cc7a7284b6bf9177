#pragma once

#include <cstddef>
#include <string>

#include "tune/plot/canvas.hpp"
#include "tune/window/sweep_grid.hpp"

/**
 * How many points a sign of a row stands for, so that all signs find room.
 * @param room in characters, at least one
 */
std::size_t stride_for(std::size_t points, std::size_t room);

/**
 * A row of a grid, a sign for each so many points: that of the worst of those that were tried.
 * @param pitch from a sign to the next one, in characters
 */
std::string row_picture(const sweep_grid& grid, std::size_t row, std::size_t stride,
                        const canvas& on, std::size_t pitch = 1);
