# SPDX-License-Identifier: MIT
# Compiles through ccache where it is installed. What it keeps serves all source trees: names below this tree count as
# relative, and the build's folder makes no difference.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    ${CMAKE_COMMAND} -E env CCACHE_BASEDIR=${CMAKE_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${CCACHE})
endif()
