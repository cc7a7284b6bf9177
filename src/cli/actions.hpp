#pragma once

#include <string>

#include "cli/exit_status.hpp"

/*
 * The actions of the tool. Values and listings go to standard output, everything else to standard
 * error; every line is written in one piece, as soon as it ends.
 */

/** Writes a NUL-terminated text to standard output; a null pointer sets the stream's bad bit. */
void print(const char* text);

/** Writes the six lines of the usage text. */
void print_usage();

/** Lists every group and its properties with their help texts. Reads no value. */
exit_status list_properties();

/**
 * Prints a property's value, then a status line.
 * @return success, also when no property has that name (a message says so), or read_failed
 */
exit_status read_property(const std::string& name);

/**
 * Sets a property, then prints a status line.
 * @return success, also when no property has that name (a message says so), or write_failed
 */
exit_status write_property(const std::string& name, const std::string& value);

/** Prints a property's value and nothing else. Never fails: a problem only causes a message. */
exit_status raw_read_property(const std::string& name);
