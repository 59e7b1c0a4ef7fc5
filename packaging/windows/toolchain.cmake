# SPDX-License-Identifier: MIT
# Builds Windows programs on Debian, with MinGW and the libraries that libraries.sh has put into the folder
# WINDOWS_PREFIX, an environment variable: CMake reads this file again for each of its own tests, without its variables.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(target x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${target}-gcc-posix)
set(CMAKE_CXX_COMPILER ${target}-g++-posix)
set(CMAKE_RC_COMPILER ${target}-windres)

# Libraries of Debian must never be found; Qt's tools that run here must be Debian's.
set(CMAKE_FIND_ROOT_PATH $ENV{WINDOWS_PREFIX} /usr/${target})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_PREFIX_PATH $ENV{WINDOWS_PREFIX})
set(QT_HOST_PATH /usr)
file(GLOB QT_HOST_PATH_CMAKE_DIR /usr/lib/*/cmake/Qt6HostInfo)
cmake_path(GET QT_HOST_PATH_CMAKE_DIR PARENT_PATH QT_HOST_PATH_CMAKE_DIR)

# One file without the compiler's own libraries beside it.
set(CMAKE_EXE_LINKER_FLAGS_INIT -static)
