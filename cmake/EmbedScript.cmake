# Turns a resource script into a C++ source that holds its text, with the header of its numbers in place of the header's
# include, so that whoever reads the text at run time needs no files. The text is a symbol of the library that the source
# is linked into, by which platform/host/ResourceText.h finds it. OrvoDialogs.cmake calls it.
# cmake -DSCRIPT=file.rc -DHEADER=Resource.h -DOUTPUT=file.cpp -P EmbedScript.cmake
file(READ ${HEADER} header)
file(READ ${SCRIPT} script)
get_filename_component(name ${HEADER} NAME)
set(include "#include \"${name}\"\n")
string(FIND "${script}" "${include}" at)
if(at EQUAL -1)
  message(FATAL_ERROR "${SCRIPT} does not include ${name}")
endif()
string(SUBSTRING "${script}" 0 ${at} before)
string(REGEX MATCHALL "\n" lines "${before}")
list(LENGTH lines line)
math(EXPR line "${line} + 2")
string(REPLACE "${include}" "#line 1\n${header}#line ${line}\n" script "${script}")

string(HEX "${script}" bytes)
string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
file(WRITE ${OUTPUT} "// Made from ${name} and its script while building.
#include \"platform/base/Api.h\"

extern \"C\" {
extern ORVO_API const char OrvoResourceScript[];
const char OrvoResourceScript[] = {
${bytes}0};
}
")
