# ARMv5 and later, floating point in software. Package g++-arm-linux-gnueabi.
set(CMAKE_SYSTEM_PROCESSOR armv5tel)
set(triplet arm-linux-gnueabi)
set(qemu qemu-arm)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
