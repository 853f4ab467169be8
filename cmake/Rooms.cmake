# A room is one folder of src/ as a static library; LINKS states the arrows that leave it.
function(inin_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
    add_library(${name} STATIC ${ROOM_SOURCES})
    target_include_directories(${name} PUBLIC "${PROJECT_SOURCE_DIR}/src")
    target_link_libraries(${name} PUBLIC ${ROOM_LINKS} PRIVATE inin_flags ${ROOM_PRIVATE_LINKS})
endfunction()

# A doctest program for one room; its cases run as one test of ctest.
function(inin_test name)
    cmake_parse_arguments(TEST "" "" "SOURCES;LINKS" ${ARGN})
    add_executable(${name} ${TEST_SOURCES})
    target_link_libraries(${name} PRIVATE inin_flags inin_test_main ${TEST_LINKS})
    target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
    target_compile_definitions(${name} PRIVATE
        ININ_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data" ININ_SCENARIOS="${PROJECT_SOURCE_DIR}/tests/scenarios"
        ININ_SITE="${PROJECT_SOURCE_DIR}/site")
    if(WIN32)
        # Unoptimized: what takes the time is compiling the tests, not running them.
        target_compile_options(${name} PRIVATE -O0)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    set_tests_properties(${name} PROPERTIES TIMEOUT 300)
endfunction()
