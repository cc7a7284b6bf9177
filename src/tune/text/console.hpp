#pragma once

#include <string>

/*
 * What the program says itself. Results are collected and shown at the end, when the lock is
 * released: a console that blocks must not stop it between two writes.
 */

/**
 * Says something on standard error at once, the program's name before each of its lines; what is
 * not printable ASCII as \xNN. Never while a value is set.
 */
void say(const std::string& text);

/**
 * Says something on standard error in a line that the next thing said in place is written over;
 * what is said otherwise begins below it. Only for a terminal.
 */
void say_in_place(const std::string& line);

/** The same, and the line stays. */
void say_in_place_at_last(const std::string& line);

/**
 * Shows results on standard output.
 * @throw mistake when they cannot be written
 */
void show(const std::string& text);
