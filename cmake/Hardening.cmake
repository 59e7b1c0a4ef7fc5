# SPDX-License-Identifier: MIT
# Makes it harder to exploit a bug in a release. All compilers except Microsoft's have these options.
# tests/packaging/check.sh verifies that the packaged program was built with them.
if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  add_compile_options("$<$<CONFIG:Release>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2;-fstack-protector-strong>")
  include(CheckPIESupported)
  check_pie_supported(LANGUAGES CXX)
  set(CMAKE_POSITION_INDEPENDENT_CODE ON)
  include(CheckLinkerFlag)
  check_linker_flag(CXX -Wl,-z,relro,-z,now WIZARD_LINKER_BINDS_AT_START)
  if(WIZARD_LINKER_BINDS_AT_START)
    add_link_options($<$<CONFIG:Release>:-Wl,-z,relro,-z,now>)
  endif()
endif()
