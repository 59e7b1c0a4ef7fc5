# SPDX-License-Identifier: MIT
# What makes a release harder to attack through a fault in it; the compilers of all platforms but Microsoft's know these.
# tests/packaging/check.sh looks for them in the packaged program.
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
