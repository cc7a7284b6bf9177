# What every target of the project is compiled with: language level, warnings, hardening.

add_library(brisel_options INTERFACE)
target_compile_features(brisel_options INTERFACE cxx_std_20)
target_compile_options(brisel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    $<$<BOOL:${BRISEL_WERROR}>:-Werror>
    # A release is the same to the byte in whatever folder it is built.
    $<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>
    -fstack-protector-strong
    # As g++ has it: an operator delete that is told the size.
    $<$<CXX_COMPILER_ID:Clang>:-fsized-deallocation>)
target_link_options(brisel_options INTERFACE -Wl,-z,relro -Wl,-z,now)

# What is shipped brings its C++ library along: finding and relocating a shared one would be more than half
# of a run, and it works beside any other version. Of that library it keeps what it uses.
add_library(brisel_shipped INTERFACE)
if(BRISEL_STATIC_RUNTIME AND NOT BRISEL_SANITIZE AND NOT BRISEL_COVERAGE)
    target_link_options(brisel_shipped INTERFACE
        -static-libstdc++ -static-libgcc -Wl,--gc-sections)
endif()

# What the program and its tests are compiled with: the same, and the sanitizers where asked for.
add_library(brisel_instrumented INTERFACE)
target_link_libraries(brisel_instrumented INTERFACE brisel_options)

if(BRISEL_COVERAGE)
    # Not what tests and the C++ library have in the same objects.
    target_compile_options(brisel_instrumented INTERFACE
        --coverage -O0 -fno-inline -fprofile-filter-files=${PROJECT_SOURCE_DIR}/src/.*)
    target_link_options(brisel_instrumented INTERFACE --coverage)
elseif(BRISEL_SANITIZE)
    target_compile_options(brisel_instrumented INTERFACE
        -fsanitize=${BRISEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    # With the runtime inside the program, the simulated board's library can be preloaded.
    target_link_options(brisel_instrumented INTERFACE -fsanitize=${BRISEL_SANITIZE}
        $<$<CXX_COMPILER_ID:GNU>:-static-libasan>)
else()
    # Fortified library calls need an optimising build, and hide accesses from the sanitizers.
    target_compile_definitions(brisel_options INTERFACE
        $<$<NOT:$<CONFIG:Debug>>:_FORTIFY_SOURCE=2>)
endif()
