# SPDX-License-Identifier: MIT
# What is installed, and what goes into the packages: a .deb, and a .tar.gz of the program's folder alone.
# package.sh makes them; `cmake --install build/release --prefix ~/.local` installs without a package.
set(program_folder lib/pelmo-wizard)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(made ${CMAKE_BINARY_DIR}/packaging)

# The program looks for its help and its samples in its own folder, so everything goes into one folder.
install(TARGETS pelmo-wizard DESTINATION ${program_folder})
install(DIRECTORY ${CMAKE_SOURCE_DIR}/samples/ DESTINATION ${program_folder})
install(FILES ${program_output}/Pelmo.chm DESTINATION ${program_folder} OPTIONAL)

file(MAKE_DIRECTORY ${made})
file(CREATE_LINK ../${program_folder}/pelmo-wizard ${made}/pelmo-wizard RESULT link SYMBOLIC)
if(link STREQUAL "0")
  install(FILES ${made}/pelmo-wizard DESTINATION bin)
else()
  message(STATUS "The program is installed without a link in bin: ${link}")
endif()
install(FILES ${packaging}/pelmo-wizard.desktop DESTINATION share/applications)
install(FILES ${packaging}/com.example.pelmo.wizard.metainfo.xml DESTINATION share/metainfo)
install(FILES ${packaging}/copyright DESTINATION share/doc/pelmo-wizard)
install(FILES ${packaging}/lintian-overrides DESTINATION share/lintian/overrides RENAME pelmo-wizard)

configure_file(${packaging}/README.txt.in ${made}/README.txt @ONLY)
configure_file(${packaging}/pelmo-wizard.1.in ${made}/pelmo-wizard.1 @ONLY)
find_program(GZIP gzip)
if(GZIP)
  foreach(source ${packaging}/changelog ${made}/pelmo-wizard.1)
    cmake_path(GET source FILENAME file)
    add_custom_command(OUTPUT ${made}/${file}.gz DEPENDS ${source} VERBATIM
      COMMAND ${GZIP} -9nc ${source} > ${made}/${file}.gz)
    list(APPEND made_files ${made}/${file}.gz)
  endforeach()
  install(FILES ${made}/changelog.gz DESTINATION share/doc/pelmo-wizard)
  install(FILES ${made}/pelmo-wizard.1.gz DESTINATION share/man/man1)
endif()

set(icon ${CMAKE_SOURCE_DIR}/shell/images/wizard.svg)
set(icons share/icons/hicolor)
install(FILES ${icon} DESTINATION ${icons}/scalable/apps RENAME pelmo-wizard.svg)
find_program(RSVG_CONVERT rsvg-convert)
if(RSVG_CONVERT)
  foreach(size 16 22 24 32 48 64 128 256)
    add_custom_command(OUTPUT ${made}/${size}.png DEPENDS ${icon} VERBATIM
      COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${made}/${size}.png ${icon})
    list(APPEND made_files ${made}/${size}.png)
    install(FILES ${made}/${size}.png DESTINATION ${icons}/${size}x${size}/apps RENAME pelmo-wizard.png)
  endforeach()
endif()
add_custom_target(package_files ALL DEPENDS ${made_files})

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME pelmo-wizard)
set(CPACK_PACKAGE_VENDOR "The Reporting Scheme Wizard developers")
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <developers@pelmo.example.com>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "designer of the tree and the web reports of a Pelmo database")
set(CPACK_PACKAGE_DESCRIPTION_FILE ${packaging}/description.txt)
set(CPACK_SYSTEM_NAME linux-${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS  # whatever the umask
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# No library depends on these: fonts with the metrics of Arial; and Qt's reader of SVG images, which has been a separate
# package since Debian 13.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation, libqt6svg6 (<< 6.8~) | qt6-svg-plugins")
# To show the help file; and to check the same rules in scripts.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, xchm | kchmviewer | okular-extra-backends, pelmo-scheme")

set(CPACK_WIZARD_README ${made}/README.txt)  # for the script
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_SOURCE_DIR}/cmake/PortableFolder.cmake)
include(CPack)
if(TARGET pelmo-scheme)
  include(${CMAKE_CURRENT_LIST_DIR}/SchemePackage.cmake)
endif()
