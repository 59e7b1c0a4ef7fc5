# SPDX-License-Identifier: MIT
# The tests are linked with lld if it is installed: ld takes three times as long.
find_program(LLD ld.lld)
if(LLD AND WIZARD_TESTS AND CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang" AND CMAKE_SYSTEM_NAME STREQUAL "Linux")
  add_link_options(-fuse-ld=lld)
endif()
