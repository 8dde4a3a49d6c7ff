# Compiler flags that every target of the project shares.
add_library(orvo_flags INTERFACE)
target_compile_options(orvo_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror
  -ffp-contract=off              # a sum of products gives the same bits in every build
  -fno-semantic-interposition)   # exported calls inside a library need no table
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Unique symbols would pin a plug-in in memory: dlclose would leave it loaded without a word.
  target_compile_options(orvo_flags INTERFACE -fno-gnu-unique)
endif()
if(ORVO_SANITIZE)
  target_compile_options(orvo_flags INTERFACE -fsanitize=${ORVO_SANITIZE} -fno-omit-frame-pointer
    -fno-sanitize-recover=all)
  target_link_options(orvo_flags INTERFACE -fsanitize=${ORVO_SANITIZE})
endif()
if(ORVO_COVERAGE)
  target_compile_options(orvo_flags INTERFACE --coverage)
  target_link_options(orvo_flags INTERFACE --coverage)
endif()
