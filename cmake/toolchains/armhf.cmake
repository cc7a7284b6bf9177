# ARMv7 with a floating-point unit: the boards that brisel is for. Package g++-arm-linux-gnueabihf.
set(CMAKE_SYSTEM_PROCESSOR armv7l)
set(triplet arm-linux-gnueabihf)
set(qemu qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
