# SPDX-License-Identifier: MIT
# What is installed on Windows: one folder with everything in it, which packaging/windows/build.sh makes into a .zip and
# an installer. The program looks for its help and its samples in its own folder.
install(TARGETS pelmo-wizard DESTINATION .)
if(TARGET pelmo-scheme)
  install(TARGETS pelmo-scheme DESTINATION .)
endif()
install(DIRECTORY ${CMAKE_SOURCE_DIR}/samples/ DESTINATION .)
install(FILES ${program_output}/Pelmo.chm DESTINATION . OPTIONAL)
install(FILES ${CMAKE_SOURCE_DIR}/LICENSE DESTINATION . RENAME LICENSE.txt)
configure_file(${CMAKE_SOURCE_DIR}/packaging/windows/README.txt.in ${CMAKE_BINARY_DIR}/packaging/README.txt
  @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_BINARY_DIR}/packaging/README.txt DESTINATION .)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_NAME pelmo-wizard)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_SYSTEM_NAME win64)
set(CPACK_STRIP_FILES ON)
include(CPack)
