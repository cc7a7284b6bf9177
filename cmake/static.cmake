# One file that needs nothing of the root file system that it runs on, without symbols.
#
# At a fixed address: moving it elsewhere at every start would cost some 4000 relocations, and
# Debian's C library for 32-bit ARM has no start-up code for it.

# Left to itself CMake links with -pie or -no-pie, and neither goes with a static program.
unset(CMAKE_POSITION_INDEPENDENT_CODE)
add_compile_options(-fno-pie)
add_link_options(-static)

# The program is optimised as a whole, so its libraries may be compiled as wholes, in half of the time.
# -fno-plt: direct calls.
foreach(setting CMAKE_INTERPROCEDURAL_OPTIMIZATION CMAKE_UNITY_BUILD)
    if(NOT DEFINED ${setting})
        set(${setting} ON)
    endif()
endforeach()
add_compile_options(-fno-plt)

# Sections that nothing refers to are most of what the C++ library would bring along. Code and
# constants share a mapping, as ARM's linker has it anyway: fewer mappings start and end sooner.
add_link_options(-s -Wl,--gc-sections -Wl,-z,noseparate-code)
