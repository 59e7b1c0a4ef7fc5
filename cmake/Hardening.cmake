# SPDX-License-Identifier: MIT
# What makes a release harder to attack through a fault in it. tests/packaging/check.sh looks for it in the packaged
# programs. On Windows the linker does this by itself.
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND NOT WIN32)
  add_compile_options("$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong;-fPIC>")
  # No -fPIE, which CMake would add with its own switch for this: Qt needs -fPIC and asks for it. Optimising across files,
  # GCC would take -fPIE for all, give the program copies of Qt's objects, and the program would crash at its start.
  include(CheckLinkerFlag)
  check_linker_flag(CXX -pie WIZARD_LINKER_KNOWS_PIE)
  if(WIZARD_LINKER_KNOWS_PIE)
    add_link_options($<$<CONFIG:Release>:-pie>)
  endif()
  check_linker_flag(CXX -Wl,-z,relro,-z,now WIZARD_LINKER_BINDS_AT_START)
  if(WIZARD_LINKER_BINDS_AT_START)
    add_link_options($<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
  endif()
endif()
