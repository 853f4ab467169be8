# Compiler flags of every target, in one place.
add_library(inin_flags INTERFACE)
target_compile_options(inin_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual)
if(ININ_WERROR)
    target_compile_options(inin_flags INTERFACE -Werror)
endif()
if(ININ_SANITIZE)
    target_compile_options(inin_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # g++ 12 loses track of the alternative of a std::variant in instrumented code.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(inin_flags INTERFACE -fsanitize=address,undefined)
endif()
if(ININ_FUZZ)
    target_compile_options(inin_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

find_program(ININ_CCACHE ccache)
if(ININ_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${ININ_CCACHE}")
endif()
