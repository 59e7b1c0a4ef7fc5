# SPDX-License-Identifier: MIT
# The compile switches of every target of this project, in one place: link it PRIVATE.
add_library(wizard_warnings INTERFACE)
target_compile_options(wizard_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
  -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
  # Files that are compiled together do not shadow each other.
  $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>
  # GCC 12 takes the assignment of a short literal to a std::string for a copy that overlaps, or has no end.
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-stringop-overflow>
  $<$<BOOL:${WIZARD_WERROR}>:-Werror>)
target_compile_definitions(wizard_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
# Optimising across files, GCC takes the size of an empty hash for an impossible one.
target_link_options(wizard_warnings INTERFACE
  $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-alloc-size-larger-than>)
