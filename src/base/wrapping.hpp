#pragma once

#include <concepts>
#include <type_traits>

/** The sum of two signed numbers modulo 2 to the power of their width: it wraps, never overflows.
 */
template <std::signed_integral T>
constexpr T wrapping_add(T a, T b) {
    using U = std::make_unsigned_t<T>;
    return static_cast<T>(static_cast<U>(a) + static_cast<U>(b));
}

/** The difference of two signed numbers modulo 2 to the power of their width. */
template <std::signed_integral T>
constexpr T wrapping_subtract(T a, T b) {
    using U = std::make_unsigned_t<T>;
    return static_cast<T>(static_cast<U>(a) - static_cast<U>(b));
}
