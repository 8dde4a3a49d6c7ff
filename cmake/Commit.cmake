# Writes a source with the commit that the checkout is at, with a + behind it where files differ from it. Empty where the
# folder is no checkout of its own (a released archive, a copy within another project); who builds such a one may name
# the commit. Nothing is written when it is already so, so that nothing is compiled anew.
# cmake -DSOURCE=folder -DNAMED=commit -DOUTPUT=file.cpp -P Commit.cmake
cmake_minimum_required(VERSION 3.25)
set(commit "${NAMED}")
if(NOT commit)
  execute_process(COMMAND git -C ${SOURCE} rev-parse --show-toplevel OUTPUT_VARIABLE top ERROR_QUIET
    OUTPUT_STRIP_TRAILING_WHITESPACE RESULT_VARIABLE failed)
  if(NOT failed)
    file(REAL_PATH ${top} top)
    file(REAL_PATH ${SOURCE} source)
    if(top STREQUAL source)
      execute_process(COMMAND git -C ${SOURCE} describe --always --exclude=* --abbrev=12 --dirty=+ ERROR_QUIET
        OUTPUT_VARIABLE commit OUTPUT_STRIP_TRAILING_WHITESPACE)
    endif()
  endif()
endif()
set(text "// Made while building.\nextern const char kOrvoCommit[];\nconst char kOrvoCommit[] = \"${commit}\";\n")
if(EXISTS ${OUTPUT})
  file(READ ${OUTPUT} before)
endif()
if(NOT text STREQUAL "${before}")
  file(WRITE ${OUTPUT} "${text}")
endif()
