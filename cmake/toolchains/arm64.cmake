# ARMv8, 64 bits. Package g++-aarch64-linux-gnu.
set(CMAKE_SYSTEM_PROCESSOR aarch64)
set(triplet aarch64-linux-gnu)
set(qemu qemu-aarch64)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
