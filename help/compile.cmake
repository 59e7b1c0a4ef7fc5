# SPDX-License-Identifier: MIT
# Makes contents, index and project of the help from its pages, and compiles them:
#
#     cmake -D CHMCMD=chmcmd -D SOURCES=folder -D WORK=folder -D HELP_FILE=file -P compile.cmake
#
# contents.txt lists the pages, a page below another one indented by two blanks. A page's name in the contents is its
# title; in the index it stands under its keywords, which are separated by commas.
cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${WORK})
file(GLOB pages ${SOURCES}/*.html ${SOURCES}/*.css)
file(COPY ${pages} ${SOURCES}/pictures DESTINATION ${WORK})

function(link result name page)
  set(${result} "<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"${name}\">\
<param name=\"Local\" value=\"${page}\"></OBJECT>\n" PARENT_SCOPE)
endfunction()

set(contents "<HTML><BODY>\n<UL>\n")
set(index "")
set(files "")
set(start "")
set(depth 0)
file(STRINGS ${SOURCES}/contents.txt lines)
foreach(line IN LISTS lines)
  string(REGEX MATCH "^( *)(.+)$" unused "${line}")
  set(indent "${CMAKE_MATCH_1}")
  set(page "${CMAKE_MATCH_2}")
  file(READ ${SOURCES}/${page} text)
  if(NOT text MATCHES "<title>([^<]+)</title>")
    message(FATAL_ERROR "${page} has no title")
  endif()
  set(title "${CMAKE_MATCH_1}")
  set(keywords "")
  if(text MATCHES "<meta name=\"keywords\" content=\"([^\"]+)\">")
    string(REGEX REPLACE " *, *" ";" keywords "${CMAKE_MATCH_1}")
  endif()

  string(LENGTH "${indent}" indent)
  while(depth LESS indent)
    string(APPEND contents "<UL>\n")
    math(EXPR depth "${depth} + 2")
  endwhile()
  while(depth GREATER indent)
    string(APPEND contents "</UL>\n")
    math(EXPR depth "${depth} - 2")
  endwhile()
  link(entry "${title}" ${page})
  string(APPEND contents "${entry}")
  foreach(keyword IN LISTS keywords)
    link(entry "${keyword}" ${page})
    list(APPEND index "${entry}")
  endforeach()
  string(APPEND files "${page}\n")
  if(start STREQUAL "")
    set(start ${page})
  endif()
endforeach()
while(depth GREATER 0)
  string(APPEND contents "</UL>\n")
  math(EXPR depth "${depth} - 2")
endwhile()
string(APPEND contents "</UL>\n</BODY></HTML>\n")
list(SORT index CASE INSENSITIVE)
string(JOIN "" index ${index})

file(WRITE ${WORK}/Pelmo.hhc "${contents}")
# No binary index: of the one that chmcmd makes, xchm shows halves of words.
file(WRITE ${WORK}/Pelmo.hhk "<HTML><BODY>\n<UL>\n${index}</UL>\n</BODY></HTML>\n")
file(WRITE ${WORK}/Pelmo.hhp "[OPTIONS]
Compatibility=1.1 or later
Compiled file=unfinished.chm
Contents file=Pelmo.hhc
Index file=Pelmo.hhk
Default topic=${start}
Title=Reporting Scheme Wizard for Pelmo
Language=0x0409 English (United States)
Full-text search=Yes
Binary Index=No

[FILES]
${files}")

# A failed run leaves a broken file, so the help gets its name last. A warning is of a file that a page wants and that
# is not there.
execute_process(COMMAND ${CHMCMD} Pelmo.hhp WORKING_DIRECTORY ${WORK}
  RESULT_VARIABLE result OUTPUT_VARIABLE said ERROR_VARIABLE said)
if(NOT result EQUAL 0 OR said MATCHES "Warning" OR NOT EXISTS ${WORK}/unfinished.chm)
  message(FATAL_ERROR "The help could not be compiled (${result}):\n${said}")
endif()
file(RENAME ${WORK}/unfinished.chm ${HELP_FILE})
