#pragma once

#include "reg/reg_info.hpp"
#include "reg/reg_subval.hpp"
#include "reg/regctl_garbages.hpp"

/*
 * The two ownership lists of the program.
 *
 * They are inline variables, so every source file that includes this header has them defined,
 * in this order, before anything that it defines itself. The language then initialises them
 * first, the fields' list before the registers', and destroys them last, the registers' list
 * first, whatever the order in which the objects are linked.
 */

/** Owns every field that was built with the garbage flag. */
inline regctl_garbages<reg_subval*> subval_garbages;

/** Owns every register that was built with the garbage flag. */
inline regctl_garbages<reg_info*> info_garbages;
