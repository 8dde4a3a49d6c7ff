# Run by CPack before it packs what has been put together: Debian keeps manual pages compressed.
find_program(gzip gzip REQUIRED)
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/program/*.1)
list(FILTER pages INCLUDE REGEX /man1/)
if(pages)
  execute_process(COMMAND ${gzip} -9nf ${pages} COMMAND_ERROR_IS_FATAL ANY)
endif()
