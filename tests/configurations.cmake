# SPDX-License-Identifier: MIT
# With a generator for several configurations each has a folder for its program. The samples must be there, and the help
# must be made there and installed from there:
#
#     cmake -D SOURCE=folder -D WORK=folder -P configurations.cmake
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE ${WORK})
execute_process(COMMAND ${CMAKE_COMMAND} -S ${SOURCE} -B ${WORK} -G "Ninja Multi-Config" -D WIZARD_TESTS=OFF
    -D WIZARD_COMMANDS=OFF -D CHMCMD=chmcmd -D "CMAKE_CONFIGURATION_TYPES=Release;Debug"
  OUTPUT_VARIABLE said ERROR_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
foreach(configuration Release Debug)
  if(NOT EXISTS ${WORK}/bin/${configuration}/XST1.txt)
    message(SEND_ERROR "the samples are not in bin/${configuration}")
  endif()
  file(READ ${WORK}/CMakeFiles/impl-${configuration}.ninja rules)
  foreach(made pelmo-wizard Pelmo.chm)
    if(NOT rules MATCHES "build bin/${configuration}/${made}[ :]")
      message(SEND_ERROR "${made} is not made in bin/${configuration}")
    endif()
  endforeach()
  file(READ ${WORK}/cmake_install.cmake rules)
  if(NOT rules MATCHES "/bin/${configuration}/Pelmo[.]chm\"")
    message(SEND_ERROR "the help is not installed from bin/${configuration}")
  endif()
endforeach()
if(EXISTS ${WORK}/bin/XST1.txt)
  message(SEND_ERROR "the samples are beside no program")
endif()
file(REMOVE_RECURSE ${WORK})
