# SPDX-License-Identifier: MIT
# Tests help/compile.cmake: with compilers of CHM files that fail, and with the true one where there is one.
#
#     cmake -D WORK=folder -P compile_test.cmake
cmake_minimum_required(VERSION 3.25)
get_filename_component(root ${CMAKE_CURRENT_LIST_DIR}/../.. ABSOLUTE)
file(REMOVE_RECURSE ${WORK})
file(MAKE_DIRECTORY ${WORK})

function(compile compiler sources)
  execute_process(COMMAND ${CMAKE_COMMAND} -D CHMCMD=${compiler} -D SOURCES=${sources} -D WORK=${WORK}/pages
    -D HELP_FILE=${WORK}/Pelmo.chm -P ${root}/help/compile.cmake
    RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
  set(result "${result}" PARENT_SCOPE)
  set(said "${said}" PARENT_SCOPE)
endfunction()

function(expect what)
  cmake_language(EVAL CODE "if(NOT (${what}))
    message(SEND_ERROR [==[expected: ${what}]==] \"\\nresult ${result}, said: ${said}\")
  endif()")
endfunction()

# A compiler that leaves a file and then does this.
function(make_compiler then)
  file(WRITE ${WORK}/compiler "#!/bin/sh\necho broken > unfinished.chm\n${then}\n")
  file(CHMOD ${WORK}/compiler PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE)
endfunction()

if(UNIX)
  # It writes what it was given into the file, so the old help must not be touched by any that fails.
  file(WRITE ${WORK}/Pelmo.chm "the old help")
  foreach(fault "exit 217" "echo Warning: a page is missing" "echo Warning: a page is missing >&2" "rm unfinished.chm")
    make_compiler("${fault}")
    compile(${WORK}/compiler ${root}/help)
    file(READ ${WORK}/Pelmo.chm now)
    expect("NOT result EQUAL 0")
    expect("said MATCHES \"could not be compiled\"")
    expect("now STREQUAL \"the old help\"")
  endforeach()
  make_compiler("true")
  compile(${WORK}/compiler ${root}/help)
  file(READ ${WORK}/Pelmo.chm now)
  expect("result EQUAL 0")
  expect("now STREQUAL \"broken\\n\"")
endif()

find_program(CHMCMD NAMES chmcmd chmcmd-3.2.2)
if(NOT CHMCMD)
  message("skipped: the true compiler: chmcmd is not installed")
  return()
endif()
file(REMOVE ${WORK}/Pelmo.chm)
compile(${CHMCMD} ${root}/help)
expect("result EQUAL 0")
file(READ ${WORK}/Pelmo.chm magic LIMIT 4 HEX)
expect("magic STREQUAL \"49545346\"") # ITSF

# Each page is in contents, index and project; what is compiled can be listed.
file(READ ${WORK}/pages/Pelmo.hhc contents)
file(READ ${WORK}/pages/Pelmo.hhk index)
file(READ ${WORK}/pages/Pelmo.hhp project)
find_program(CHMLS NAMES chmls chmls-3.2.2)
if(CHMLS)
  execute_process(COMMAND ${CHMLS} list ${WORK}/Pelmo.chm OUTPUT_VARIABLE listed ERROR_QUIET)
  expect("listed MATCHES \" /Pelmo.hhk\\n\"")
  expect("NOT listed MATCHES \"KeywordLinks\"") # a binary index
endif()
file(GLOB files RELATIVE ${root}/help ${root}/help/*.html ${root}/help/*.css ${root}/help/pictures/*.png)
foreach(file IN LISTS files)
  if(CHMLS)
    expect("listed MATCHES \" /${file}\\n\"")
  endif()
  if(file MATCHES "html$")
    expect("contents MATCHES \"\\\"${file}\\\"\"")
    expect("index MATCHES \"\\\"${file}\\\"\"")
    expect("project MATCHES \"\\n${file}\\n\"")
  endif()
endforeach()
string(REGEX MATCHALL "<UL>" opened "${contents}")
string(REGEX MATCHALL "</UL>" closed "${contents}")
list(LENGTH opened opened)
list(LENGTH closed closed)
expect("opened EQUAL ${closed}")
expect("opened GREATER 5")

# A page that wants a picture which is not there is no help.
file(COPY ${root}/help/ DESTINATION ${WORK}/spoilt)
file(REMOVE ${WORK}/spoilt/pictures/main.png ${WORK}/Pelmo.chm)
compile(${CHMCMD} ${WORK}/spoilt)
expect("NOT result EQUAL 0")
expect("NOT EXISTS \"${WORK}/Pelmo.chm\"")
