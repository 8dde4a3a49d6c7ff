# Writes the header that says of which build the public headers are: the version, and a number made of all that a plug-in
# is compiled with and linked to, the headers of api/headers.txt and the names of api/*.exports. Comments and layout do
# not count. The file stays as it is while nothing changed, so that nothing is compiled anew.
# cmake -DSOURCE=folder -DVERSION=0.1.0 -DOUTPUT=file.h -P StampScript.cmake
cmake_minimum_required(VERSION 3.25)
file(STRINGS ${SOURCE}/api/headers.txt headers)
set(all "")
foreach(header IN LISTS headers)
  file(READ ${SOURCE}/${header} text)
  string(REGEX REPLACE "//[^\n]*" "" text "${text}")
  string(REGEX REPLACE "[ \t\n]+" " " text "${text}")
  string(APPEND all "${header}\n${text}\n")
endforeach()
file(GLOB lists ${SOURCE}/api/*.exports)
list(SORT lists)
foreach(list IN LISTS lists)
  file(READ ${list} text)
  string(APPEND all "${text}\n")
endforeach()
string(SHA256 hash "${all}")
string(SUBSTRING ${hash} 0 8 hash)
file(CONFIGURE OUTPUT ${OUTPUT} @ONLY CONTENT "// Of which build these headers are: made while building, and other whenever one of them says something else.
#pragma once

#define ORVO_BUILD_STAMP \"@VERSION@-@hash@\"
")
