# SPDX-License-Identifier: MIT
# What is installed of pelmo-scheme, and its package: a separate one, since it needs no windows. Nothing of it is
# installed with the wizard. cpack makes the package from CPackScheme.cmake in the build folder.
set(scheme COMPONENT scheme EXCLUDE_FROM_ALL)
install(TARGETS pelmo-scheme DESTINATION bin ${scheme})
install(FILES ${packaging}/copyright DESTINATION share/doc/pelmo-scheme ${scheme})
set(completions ${packaging}/completions)
install(FILES ${completions}/pelmo-scheme.bash DESTINATION share/bash-completion/completions RENAME pelmo-scheme ${scheme})
install(FILES ${completions}/_pelmo-scheme DESTINATION share/zsh/vendor-completions ${scheme})
install(FILES ${completions}/pelmo-scheme.fish DESTINATION share/fish/vendor_completions.d ${scheme})
if(GZIP)
  set(page ${made}/pelmo-scheme.1)
  configure_file(${packaging}/pelmo-scheme.1.in ${page} @ONLY)
  add_custom_command(OUTPUT ${page}.gz DEPENDS ${page} VERBATIM
    COMMAND ${GZIP} -9nc ${page} > ${page}.gz)
  add_custom_target(scheme_package_files DEPENDS ${page}.gz)
  add_dependencies(pelmo-scheme scheme_package_files)
  install(FILES ${page}.gz DESTINATION share/man/man1 ${scheme})
  install(FILES ${made}/changelog.gz DESTINATION share/doc/pelmo-scheme ${scheme})
endif()
configure_file(${CMAKE_CURRENT_LIST_DIR}/CPackScheme.cmake.in ${CMAKE_BINARY_DIR}/CPackScheme.cmake @ONLY)
