# One file that needs nothing of the root file system that it runs on, without symbols.

include(CheckLinkerFlag)

# Left to itself CMake links with -pie or -no-pie, and neither goes with a static program.
unset(CMAKE_POSITION_INDEPENDENT_CODE)

# At an address that differs from run to run, where the C library has the start-up code for that;
# Debian's for 32-bit ARM has not.
check_linker_flag(CXX -static-pie BRISEL_STATIC_PIE)
if(BRISEL_STATIC_PIE)
    add_compile_options(-fPIE)
    add_link_options(-static-pie)
else()
    add_link_options(-static)
endif()

# Sections that nothing refers to are most of what the C++ library would bring along.
add_link_options(-s -Wl,--gc-sections)
