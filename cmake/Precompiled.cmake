# SPDX-License-Identifier: MIT
# With WIZARD_PRECOMPILE, the headers that most files of a folder include are compiled once, which halves the time that
# most files take. Each file includes what it uses all the same: preset asan, which does without, and tests/includes.py
# check that.
set(common_headers <algorithm> <cstdint> <functional> <memory> <optional> <string> <string_view> <utility> <vector>)

# precompile(TARGET HEADER...), or precompile(TARGET REUSE_FROM OTHER) for a target with the same options
function(precompile target)
  if(WIZARD_PRECOMPILE)
    if(ARGV1 STREQUAL "REUSE_FROM")
      target_precompile_headers(${target} ${ARGN})
    else()
      target_precompile_headers(${target} PRIVATE ${ARGN})
    endif()
    # ccache needs to see which precompiled header a file uses.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()
