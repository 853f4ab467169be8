# The libraries of a cross build. Header-only libraries are the same on every system: link each into a separate folder,
# because the cross compiler must not see the include folder of the build machine.
set(ININ_HOST_HEADERS "${CMAKE_BINARY_DIR}/host-headers")
function(inin_host_headers target folder)
    if(NOT EXISTS "/usr/include/${folder}")
        message(FATAL_ERROR "/usr/include/${folder} is missing: scripts/install")
    endif()
    file(MAKE_DIRECTORY "${ININ_HOST_HEADERS}")
    file(CREATE_LINK "/usr/include/${folder}" "${ININ_HOST_HEADERS}/${folder}" SYMBOLIC)
    add_library(${target} INTERFACE IMPORTED GLOBAL)
    set_target_properties(${target} PROPERTIES INTERFACE_INCLUDE_DIRECTORIES "${ININ_HOST_HEADERS}")
endfunction()
inin_host_headers(fmt::fmt fmt)
# The library of the build machine is for another system: compile it into every file that uses it.
set_target_properties(fmt::fmt PROPERTIES INTERFACE_COMPILE_DEFINITIONS FMT_HEADER_ONLY=1)
inin_host_headers(nlohmann_json::nlohmann_json nlohmann)
inin_host_headers(CLI11::CLI11 CLI)
inin_host_headers(doctest::doctest doctest)

# The SQLite amalgamation made by packaging/windows/make-sqlite.
set(ININ_SQLITE_SOURCE "$ENV{HOME}/.cache/inin-windows/sqlite" CACHE PATH "Folder of sqlite3.c and sqlite3.h")
if(NOT EXISTS "${ININ_SQLITE_SOURCE}/sqlite3.c")
    message(FATAL_ERROR "${ININ_SQLITE_SOURCE}/sqlite3.c is missing: packaging/windows/make-sqlite")
endif()
enable_language(C)
add_library(inin_sqlite3 STATIC "${ININ_SQLITE_SOURCE}/sqlite3.c")
target_include_directories(inin_sqlite3 SYSTEM PUBLIC "${ININ_SQLITE_SOURCE}")
# Debian's options, as far as the embedded database needs them.
target_compile_definitions(inin_sqlite3 PRIVATE SQLITE_THREADSAFE=1 SQLITE_ENABLE_COLUMN_METADATA)
target_compile_options(inin_sqlite3 PRIVATE -O2 -w)
add_library(SQLite::SQLite3 ALIAS inin_sqlite3)

# The driver manager is part of Windows.
add_library(ODBC::ODBC INTERFACE IMPORTED GLOBAL)
set_target_properties(ODBC::ODBC PROPERTIES INTERFACE_LINK_LIBRARIES odbc32)

# For the letters: shaping and subsetting fonts, reading form documents and their pictures, compressing PDF, codes;
# with windows, painting scanned PDF pages.
set(ININ_LETTER_LIBRARIES harfbuzz expat png jpeg deflate zbar)
if(ININ_QT)
    list(APPEND ININ_LETTER_LIBRARIES poppler)
endif()
foreach(library IN LISTS ININ_LETTER_LIBRARIES)
    string(TOUPPER ${library} upper)
    set(ININ_${upper} "$ENV{HOME}/.cache/inin-windows/${library}" CACHE PATH "Folder of include/ and lib/lib${library}.a")
    if(NOT EXISTS "${ININ_${upper}}/lib/lib${library}.a")
        message(FATAL_ERROR "${ININ_${upper}}/lib/lib${library}.a is missing: packaging/windows/make-${library}")
    endif()
    add_library(inin_${library} STATIC IMPORTED GLOBAL)
    set_target_properties(inin_${library} PROPERTIES
        IMPORTED_LOCATION "${ININ_${upper}}/lib/lib${library}.a"
        INTERFACE_INCLUDE_DIRECTORIES "${ININ_${upper}}/include")
endforeach()
set_property(TARGET inin_expat PROPERTY INTERFACE_COMPILE_DEFINITIONS XML_STATIC)
add_library(EXPAT::EXPAT ALIAS inin_expat)
find_library(ININ_ZLIB NAMES libz.a REQUIRED)
add_library(ZLIB::ZLIB STATIC IMPORTED GLOBAL)
set_target_properties(ZLIB::ZLIB PROPERTIES IMPORTED_LOCATION "${ININ_ZLIB}")
add_library(PNG::PNG ALIAS inin_png)
target_link_libraries(inin_png INTERFACE ZLIB::ZLIB)
add_library(JPEG::JPEG ALIAS inin_jpeg)
if(ININ_QT)
    target_link_libraries(inin_poppler INTERFACE inin_jpeg gdi32)
endif()
