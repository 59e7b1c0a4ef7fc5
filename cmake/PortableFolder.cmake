# SPDX-License-Identifier: MIT
# CPack runs this when the files for a package stand in place. Of those for the .tar.gz it leaves the program's folder
# alone, and adds what goes with it.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(root ${CPACK_TEMPORARY_DIRECTORY})
  file(RENAME ${root}/lib/pelmo-wizard ${root}.folder)
  file(REMOVE_RECURSE ${root})
  file(RENAME ${root}.folder ${root})
  set(source ${CMAKE_CURRENT_LIST_DIR}/..)
  file(COPY ${source}/LICENSE ${source}/packaging/README.txt DESTINATION ${root})
endif()
