# SPDX-License-Identifier: MIT
# CPack runs this when the files for a package are in place. For the .tar.gz this keeps only the program's folder and
# adds the files that go with it.
if(CPACK_GENERATOR STREQUAL "TGZ")
  set(root ${CPACK_TEMPORARY_DIRECTORY})
  file(RENAME ${root}/lib/pelmo-wizard ${root}.folder)
  file(REMOVE_RECURSE ${root})
  file(RENAME ${root}.folder ${root})
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/../LICENSE ${CPACK_WIZARD_README} DESTINATION ${root})
endif()
