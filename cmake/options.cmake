# What every target of the project is compiled with: language level, warnings, hardening.

add_library(brisel_options INTERFACE)
target_compile_features(brisel_options INTERFACE cxx_std_20)
target_compile_options(brisel_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion
    $<$<BOOL:${BRISEL_WERROR}>:-Werror>
    -fstack-protector-strong)
# Files are opened with 64-bit offsets on 32-bit boards, too.
target_compile_definitions(brisel_options INTERFACE
    _FILE_OFFSET_BITS=64
    # Fortified library calls need an optimising build, and hide accesses from the sanitizers.
    $<$<AND:$<NOT:$<CONFIG:Debug>>,$<STREQUAL:${BRISEL_SANITIZE},>>:_FORTIFY_SOURCE=2>)
target_link_options(brisel_options INTERFACE -Wl,-z,relro -Wl,-z,now)

if(BRISEL_SANITIZE)
    target_compile_options(brisel_options INTERFACE
        -fsanitize=${BRISEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(brisel_options INTERFACE -fsanitize=${BRISEL_SANITIZE})
endif()
