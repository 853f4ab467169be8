# Compilers and search rules of Debian's mingw for 64-bit Windows, in the variant whose std::thread uses winpthread.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(ININ_MINGW x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${ININ_MINGW}-gcc-posix)
set(CMAKE_CXX_COMPILER ${ININ_MINGW}-g++-posix)
set(CMAKE_RC_COMPILER ${ININ_MINGW}-windres)
set(CMAKE_AR ${ININ_MINGW}-gcc-ar-posix)
set(CMAKE_RANLIB ${ININ_MINGW}-gcc-ranlib-posix)

# Never use headers and libraries of the build machine, only its programs.
set(CMAKE_FIND_ROOT_PATH /usr/${ININ_MINGW})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
