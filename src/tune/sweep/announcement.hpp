#pragma once

#include <string>
#include <vector>

#include "tune/window/sweep_grid.hpp"

/*
 * What is said of a sweep before its first point.
 */

/**
 * The points of each axis, and in which order they are tried, for the user and the log: lines
 * without their ends.
 * @param all whether every point is tried
 */
std::vector<std::string> orders_of(const std::vector<sweep_grid>& grids, bool all);

/** Tells the user what will be done, what was done before, and what is at risk. */
void announce(const std::vector<sweep_grid>& grids, const std::vector<std::string>& orders);

/**
 * The lines with which a session begins in the log.
 * @param before what the parts of the axes hold
 */
std::string session_lines(const std::vector<setting>& before,
                          const std::vector<std::string>& orders);
