#pragma once

#include <dlfcn.h>

/** In front of a function that takes the place of the C library's: the only ones to be seen. */
#define BOARD_CALL extern "C" [[gnu::visibility("default")]]

/**
 * The function that a call would reach if this library were not there, for example
 * next_call<decltype(::flock)>("flock"). Null where no library has one of that name.
 */
template <typename Function>
Function* next_call(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}
