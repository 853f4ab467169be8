# Compiler flags of all targets.
add_library(inin_flags INTERFACE)
if(MSVC)
    # Sources are UTF-8, and a macro of windows.h must not hide a name of the standard library. Do not warn about
    # functions of the C standard library.
    target_compile_options(inin_flags INTERFACE /utf-8 /W4 /permissive- /Zc:__cplusplus /bigobj)
    target_compile_definitions(inin_flags INTERFACE NOMINMAX WIN32_LEAN_AND_MEAN _CRT_SECURE_NO_WARNINGS)
else()
    target_compile_options(inin_flags INTERFACE
        -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
        -Wnon-virtual-dtor -Woverloaded-virtual)
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
        # When optimizing, g++ 12 wrongly warns of an overlapping copy in `"text" + std::string()` (GCC bug 105651).
        target_compile_options(inin_flags INTERFACE $<$<CONFIG:Release>:-Wno-restrict>)
    endif()
endif()
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # In a group, g++ takes a source file for a header and warns of its unnamed namespace.
    target_compile_options(inin_flags INTERFACE -Wno-subobject-linkage)
endif()
if(ININ_WERROR AND NOT MSVC)
    target_compile_options(inin_flags INTERFACE -Werror)
endif()
if(ININ_SANITIZE)
    target_compile_options(inin_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        # In instrumented code, g++ 12 does not track which alternative of a std::variant is active.
        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_link_options(inin_flags INTERFACE -fsanitize=address,undefined)
endif()

# The same sources make the same programs in every folder.
if(NOT MSVC)
    target_compile_options(inin_flags INTERFACE "$<$<CONFIG:Release>:-ffile-prefix-map=${PROJECT_SOURCE_DIR}=.>")
endif()

# Hardening, so that damage to memory ends a program instead of being exploited; tests/hardening/check-program checks it.
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
include(CheckPIESupported)
check_pie_supported()
if(WIN32 AND NOT MSVC)
    target_link_options(inin_flags INTERFACE -Wl,--dynamicbase,--nxcompat,--high-entropy-va)
elseif(NOT MSVC)
    target_compile_options(inin_flags INTERFACE -fstack-protector-strong -fstack-clash-protection)
    if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
        target_compile_options(inin_flags INTERFACE -fcf-protection)
    endif()
    # Libraries and programs share one kind of position independence: precompiled headers require it, and so does Qt.
    target_compile_options(inin_flags INTERFACE -fPIC)
    target_link_options(inin_flags INTERFACE -Wl,-z,relro,-z,now,-z,noexecstack)
    # The C library's checks exist in optimized code only, and the sanitizers have their own.
    if(NOT ININ_SANITIZE AND (NOT CMAKE_BUILD_TYPE STREQUAL "Debug" OR CMAKE_CXX_FLAGS_DEBUG MATCHES "-O[1-3s]"))
        set(level 3)
        if((CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12) OR
           (CMAKE_CXX_COMPILER_ID STREQUAL "Clang" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 12))
            set(level 2)
        endif()
        target_compile_options(inin_flags INTERFACE -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=${level})
    endif()
endif()

# Additional flags of windows and command lines: with sanitizers, optimizing them takes longer than running them.
add_library(inin_cold_flags INTERFACE)
if(ININ_SANITIZE)
    target_compile_options(inin_cold_flags INTERFACE -O0)
endif()

# Additional flags of the test programs.
add_library(inin_test_flags INTERFACE)
if((WIN32 OR ININ_SANITIZE OR CMAKE_BUILD_TYPE STREQUAL "Debug") AND NOT MSVC)
    # Unoptimized: tests take longer to compile than to run. Without optimization there are no checks of the C library.
    target_compile_options(inin_test_flags INTERFACE -O0 -U_FORTIFY_SOURCE)
endif()
if(ININ_SANITIZE AND CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # In unoptimized code these checks are half of the instrumentation. In the tests' own code, the address sanitizer finds
    # nearly all that they find.
    target_compile_options(inin_test_flags INTERFACE -fno-sanitize=null,alignment,object-size,vptr)
endif()
if(ININ_FUZZ)
    # Coverage counters for libFuzzer; the address sanitizer's run-time library supplies them to ordinary programs. Only what
    # a fuzz target links has them, but all files have the first option: precompiled headers require it.
    target_compile_options(inin_flags INTERFACE -fsanitize=fuzzer-no-link
        $<$<NOT:$<BOOL:$<TARGET_PROPERTY:ININ_FUZZED>>>:-fno-sanitize-coverage=inline-8bit-counters,indirect-calls,trace-cmp,pc-table,stack-depth>)
endif()

# lld links a test program in a quarter of the time. Packages are linked by the system's own linker.
option(ININ_LLD "Link with lld, if it is installed" OFF)
if(ININ_LLD)
    include(CheckLinkerFlag)
    check_linker_flag(CXX -fuse-ld=lld ININ_LLD_WORKS)
    if(ININ_LLD_WORKS)
        target_link_options(inin_flags INTERFACE -fuse-ld=lld)
    endif()
endif()

find_program(ININ_CCACHE ccache)
if(ININ_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${ININ_CCACHE}")
endif()
