# SPDX-License-Identifier: MIT
# Compiles with ccache if it is installed. All source trees share its cache: paths below this tree are treated as
# relative, and the build folder makes no difference.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1
    CCACHE_SLOPPINESS=pch_defines,time_macros ${CCACHE})
endif()
