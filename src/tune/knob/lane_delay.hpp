#pragma once

#include <cstdint>

/*
 * The delay of a DQ lane in its seven bits: 0 to 63 steps, and above them a bit that says which
 * way. So there are two codes for no delay.
 */

/** The bit that is set for a delay upwards, d+N, and clear for one downwards, d-N. */
inline constexpr std::uint32_t upwards = 64;

inline constexpr std::int32_t most_delay = 63;

/** The delay of a code, -63 to 63. */
inline std::int32_t to_signed_delay(std::uint32_t code) {
    const auto delay = static_cast<std::int32_t>(code % upwards);
    return code >= upwards ? delay : -delay;
}

/** The code of a delay of -63 to 63; of 0 the one upwards. */
inline std::uint32_t to_lane_code(std::int32_t delay) {
    return delay < 0 ? static_cast<std::uint32_t>(-delay)
                     : upwards + static_cast<std::uint32_t>(delay);
}
