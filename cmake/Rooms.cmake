# The presets dev, asan, release, package and bench compile the sources of a target in groups (CMAKE_UNITY_BUILD): most of the time
# goes into the headers that they share. The sources of a group see each other's names; the other presets compile each file
# by itself and so show what it forgets to include. ALONE lists sources that do not fit into a group.
function(inin_compile_alone)
    set_source_files_properties(${ARGN} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
endfunction()

# For scripts/mutate and scripts/coverage; the rest of their builds is that of the preset dev.
set(ININ_CHANGED "" CACHE STRING "Sources, as paths from the top folder, that are compiled alone, unoptimized and without warnings")
set(ININ_COUNTED "" CACHE STRING "Folders of rooms, as paths from the top folder, whose lines and branches are counted")
add_library(inin_counting INTERFACE)
target_compile_options(inin_counting INTERFACE -O0 -U_FORTIFY_SOURCE --coverage)
target_link_options(inin_counting INTERFACE --coverage)

# A room is one folder of src/ as a static library. LINKS lists the rooms that it may use; TOOLKIT means that it draws
# windows, COLD that no test waits for its code.
function(inin_room name)
    cmake_parse_arguments(ROOM "TOOLKIT;COLD" "" "SOURCES;ALONE;LINKS;PRIVATE_LINKS" ${ARGN})
    inin_compile_alone(${ROOM_ALONE})
    file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
    foreach(source IN LISTS ROOM_SOURCES)
        if("${folder}/${source}" IN_LIST ININ_CHANGED)
            inin_compile_alone("${source}")
            set_source_files_properties("${source}" PROPERTIES COMPILE_OPTIONS "-O0;-U_FORTIFY_SOURCE;-w")
        endif()
    endforeach()
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE inin_flags ${ROOM_PRIVATE_LINKS})
    if(folder IN_LIST ININ_COUNTED)
        target_link_libraries(${name} PRIVATE inin_counting)
    endif()
    if(ROOM_TOOLKIT OR ROOM_COLD)
        target_link_libraries(${name} PRIVATE inin_cold_flags)
    endif()
    if(ROOM_TOOLKIT)
        inin_precompile(${name} toolkit)
    elseif(NOT ROOM_COLD) # precompiled headers are optimized like the files
        inin_precompile(${name} standard)
    endif()
endfunction()

# A source file with a function `name` that returns the bytes of a file, and is declared in `header`. It is appended to the
# list `sources`.
function(inin_embed sources name file header namespace)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/embedded_${name}.cpp")
    add_custom_command(OUTPUT "${source}"
        COMMAND "${CMAKE_COMMAND}" "-DFROM=${file}" "-DTO=${source}" -DNAME=${name} -DHEADER=${header} -DNAMESPACE=${namespace}
            -P "${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake"
        DEPENDS "${file}" "${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake" VERBATIM)
    list(APPEND ${sources} "${source}")
    set(${sources} "${${sources}}" PARENT_SCOPE)
endfunction()

# A doctest program for one room; its cases run as one ctest test. TOOLKIT means that it uses windows.
function(inin_test name)
    cmake_parse_arguments(TEST "TOOLKIT" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    # If LINKS contains a library with a main of its own, that is linked before the ordinary one.
    target_link_libraries(${name} PRIVATE inin_flags inin_test_flags ${TEST_LINKS} inin_test_main)
    if(TEST_TOOLKIT)
        inin_precompile(${name} toolkit_test)
    else()
        inin_precompile(${name} test)
    endif()
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        ININ_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" ININ_SCENARIOS="${PROJECT_SOURCE_DIR}/tests/scenarios"
        ININ_SITE="${PROJECT_SOURCE_DIR}/site")
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
