# The headers that most files of a kind read, compiled once a kind: the standard library's, the test frame's, the toolkit's.
# A file still includes what it uses: builds without it show what is missing.
option(ININ_PRECOMPILE "Compile the headers of the standard library, the tests and the toolkit once" OFF)

set(ININ_STANDARD_HEADERS
    <algorithm> <array> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional> <sstream>
    <stdexcept> <string> <string_view> <utility> <variant> <vector>)
set(ININ_TOOLKIT_HEADERS <QtWidgets/QtWidgets>)

function(inin_make_precompiled kind)
    # With g++ the rooms do without, see below.
    if(NOT ININ_PRECOMPILE OR (CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND kind STREQUAL "standard"))
        return()
    endif()
    cmake_parse_arguments(MADE "" "" "HEADERS;LINKS" ${ARGN})
    # Made by a library of nothing else; every other target of the kind takes the result over.
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
    # What ccache wants to be told before it trusts precompiled headers, and what makes them the same each time.
    set(CMAKE_CXX_COMPILER_LAUNCHER
        "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${CMAKE_CXX_COMPILER_LAUNCHER})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
        target_compile_options(inin_flags INTERFACE "SHELL:-Xclang -fno-pch-timestamp")
    else()
        target_compile_options(inin_flags INTERFACE -fpch-preprocess)
    endif()
endif()
if(ININ_PRECOMPILE AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # g++ 12 sees bounds broken inside std::string where it read that from a precompiled header, and nowhere else. The tests
    # can spare these warnings, the more as builds without precompiled headers, such as the one for Windows, keep them.
    target_compile_options(inin_test_flags INTERFACE -Wno-array-bounds -Wno-stringop-overflow -Wno-stringop-overread)
endif()
