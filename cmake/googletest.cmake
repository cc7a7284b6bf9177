# GoogleTest for another processor: Debian has its libraries for this machine only, but its sources
# too (package googletest). find_package(GTest) then builds them along.

include(FetchContent)
set(INSTALL_GTEST OFF)
FetchContent_Declare(GTest SOURCE_DIR /usr/src/googletest SYSTEM OVERRIDE_FIND_PACKAGE)
FetchContent_MakeAvailable(GTest)
foreach(library gtest gtest_main gmock gmock_main)
    target_compile_options(${library} PRIVATE -O0) # need not be fast
endforeach()
