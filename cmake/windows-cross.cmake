# Programs for 64-bit Windows without the toolkit.
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

# Each program is a single file, without separate compiler libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
