# Programs for 64-bit Windows without the toolkit.
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

# One file a program, without the compiler's libraries beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
