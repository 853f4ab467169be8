# Programs for 64-bit Windows with Qt as built by packaging/windows/make-qt. Not linked statically: the programs and Qt
# share the compiler's libraries, which are in the same folder.
include("${CMAKE_CURRENT_LIST_DIR}/mingw.cmake")

if(DEFINED ENV{ININ_WINDOWS_CACHE})
    set(ININ_WINDOWS_QT "$ENV{ININ_WINDOWS_CACHE}/qt")
else()
    set(ININ_WINDOWS_QT "$ENV{HOME}/.cache/inin-windows/qt")
endif()
list(APPEND CMAKE_FIND_ROOT_PATH "${ININ_WINDOWS_QT}")
list(PREPEND CMAKE_PREFIX_PATH "${ININ_WINDOWS_QT}")

# Build tools are those of the build machine's Qt, which has the same version.
set(QT_HOST_PATH /usr)
set(QT_HOST_PATH_CMAKE_DIR /usr/lib/x86_64-linux-gnu/cmake)
