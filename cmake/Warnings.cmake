# SPDX-License-Identifier: MIT
# The compiler options of every target in this project, in one place: link it PRIVATE.
add_library(wizard_warnings INTERFACE)
if(MSVC)
  target_compile_options(wizard_warnings INTERFACE /W4 /utf-8 $<$<BOOL:${WIZARD_WERROR}>:/WX>)
elseif(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
  target_compile_options(wizard_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    # When files are compiled together, -Wshadow would warn about names in another file.
    $<$<NOT:$<BOOL:$<TARGET_PROPERTY:UNITY_BUILD>>>:-Wshadow>
    # GCC 12 wrongly reports an overlapping or unbounded copy when a short literal is assigned to a std::string.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict>
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-stringop-overflow>
    $<$<BOOL:${WIZARD_WERROR}>:-Werror>)
  # When GCC optimises across files, it wrongly reports the size of an empty hash as too large.
  target_link_options(wizard_warnings INTERFACE
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<CONFIG:Release>>:-Wno-alloc-size-larger-than>)
endif()
target_compile_definitions(wizard_warnings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_NO_CAST_FROM_BYTEARRAY QT_NO_KEYWORDS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
