# Precompiles, once per kind of target, the headers that most files use: those of the standard library, the test
# framework, the toolkit. Files still include what they use; builds without precompiled headers show what is missing.
option(ININ_PRECOMPILE "Compile the headers of the standard library, the tests and the toolkit once" OFF)

set(ININ_STANDARD_HEADERS
    <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional> <sstream>
    <stdexcept> <string> <string_view> <utility> <variant> <vector>)
set(ININ_TOOLKIT_HEADERS <QtWidgets/QtWidgets>)

function(inin_make_precompiled kind)
    # With g++, libraries do not use them, see below.
    if(NOT ININ_PRECOMPILE OR (CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND kind STREQUAL "standard"))
        return()
    endif()
    cmake_parse_arguments(MADE "" "" "HEADERS;LINKS" ${ARGN})
    # An otherwise empty library compiles the headers; the other targets of the kind reuse the result.
    file(CONFIGURE OUTPUT "precompiled_${kind}.cpp" CONTENT "")
    add_library(inin_precompiled_${kind} STATIC "${CMAKE_CURRENT_BINARY_DIR}/precompiled_${kind}.cpp")
    target_link_libraries(inin_precompiled_${kind} PRIVATE inin_flags ${MADE_LINKS})
    target_precompile_headers(inin_precompiled_${kind} PRIVATE ${MADE_HEADERS})
endfunction()

# inin_precompile(TARGET KIND): KIND is standard, test, toolkit or toolkit_test.
function(inin_precompile target kind)
    if(TARGET inin_precompiled_${kind})
        target_precompile_headers(${target} REUSE_FROM inin_precompiled_${kind})
    endif()
endfunction()

if(ININ_PRECOMPILE AND CMAKE_CXX_COMPILER_LAUNCHER)
    # Settings that ccache requires to accept precompiled headers and that make the headers reproducible.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CMAKE_CXX_COMPILER_LAUNCHER})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_compile_options(inin_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
    else()
        target_compile_options(inin_flags INTERFACE -fpch-preprocess)
    endif()
endif()
if(ININ_PRECOMPILE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 reports false array bounds errors in std::string if its header is precompiled. The tests do without these
    # warnings; builds without precompiled headers, such as the one for Windows, keep them.
    target_compile_options(inin_test_flags INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
