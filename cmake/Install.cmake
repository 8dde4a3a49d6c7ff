# Where an installation keeps what, and what it takes for others to find the libraries there.
# Why: docs/decisions/module.md
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# The number in the libraries' names (libOrvoFacts.so.0). It rises when what a library shows to others is taken away or
# changes; tools/compare-abi tells.
set(ORVO_ABI 0)

# What the packages tell besides.
set(ORVO_PLUGIN_DIR ${CMAKE_INSTALL_FULL_LIBDIR}/orvo/plugins)
set(ORVO_DATA_DIR ${CMAKE_INSTALL_FULL_DATADIR}/orvo)

set(ORVO_INCLUDE_FOLDER ${CMAKE_INSTALL_INCLUDEDIR}/orvo)
set(ORVO_DATA_FOLDER ${CMAKE_INSTALL_DATADIR}/orvo)
set(ORVO_OWN_LIBRARY_FOLDER ${CMAKE_INSTALL_LIBDIR}/orvo)  # what the program opens
set(ORVO_PLUGIN_FOLDER ${ORVO_OWN_LIBRARY_FOLDER}/plugins)

# Libraries and programs find each other, and their data, from where they lie, so that an installation can be moved.
file(RELATIVE_PATH ORVO_LIBRARIES_TO_DATA ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_FULL_DATADIR}/orvo)
file(RELATIVE_PATH ORVO_PROGRAM_TO_LIBRARIES ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ORVO_LIBRARIES_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR} ${CMAKE_INSTALL_PREFIX})

# The headers of a folder that others may include; api/headers.txt is the list of all.
function(orvo_install_headers folder)
  set(list ${PROJECT_SOURCE_DIR}/api/headers.txt)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(STRINGS ${list} headers REGEX "^${folder}/")
  foreach(header IN LISTS headers)
    get_filename_component(place ${header} DIRECTORY)
    install(FILES ${PROJECT_SOURCE_DIR}/${header} DESTINATION ${ORVO_INCLUDE_FOLDER}/${place} COMPONENT development)
  endforeach()
endfunction()

# orvo_build_stamp(TARGET SOURCE...): the header that says of which build all of these are (StampScript.cmake), made with
# a library.
function(orvo_build_stamp target)
  file(STRINGS ${PROJECT_SOURCE_DIR}/api/headers.txt headers)
  file(GLOB lists CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/api/*)
  set(script ${PROJECT_SOURCE_DIR}/cmake/StampScript.cmake)
  list(TRANSFORM headers PREPEND ${PROJECT_SOURCE_DIR}/ OUTPUT_VARIABLE sources)
  set(stamp ${PROJECT_BINARY_DIR}/made/platform/host/BuildStamp.h)
  add_custom_command(OUTPUT ${stamp}
    COMMAND ${CMAKE_COMMAND} -DSOURCE=${PROJECT_SOURCE_DIR} -DVERSION=${PROJECT_VERSION} -DOUTPUT=${stamp}
      -P ${script}
    DEPENDS ${sources} ${lists} ${script}
    COMMENT "Making platform/host/BuildStamp.h" VERBATIM)
  target_sources(${target} PRIVATE ${stamp})
  # Plug-ins carry it, and the sources that are named compare it; the others need not be compiled anew when it changes.
  set(made ${PROJECT_BINARY_DIR}/made)
  target_include_directories(${target} INTERFACE
    $<BUILD_INTERFACE:$<$<STREQUAL:$<TARGET_PROPERTY:TYPE>,MODULE_LIBRARY>:${made}>>)
  set_source_files_properties(${ARGN} PROPERTIES INCLUDE_DIRECTORIES ${made})
  install(FILES ${stamp} DESTINATION ${ORVO_INCLUDE_FOLDER}/platform/host COMPONENT development)
endfunction()

# orvo_library(TARGET FOLDER DESCRIPTION [NEEDS LIBRARY...]): what others link, with the headers of its folder, a CMake
# package and a pkg-config file, both named like it. In this tree and outside it is Orvo::TARGET.
function(orvo_library target folder ORVO_DESCRIPTION)
  cmake_parse_arguments(PARSE_ARGV 3 ARG "" "" "NEEDS")
  add_library(Orvo::${target} ALIAS ${target})
  set_target_properties(${target} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${ORVO_ABI} INSTALL_RPATH "$ORIGIN")
  target_include_directories(${target} PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${ORVO_INCLUDE_FOLDER}>)

  # In the tree itself find_package is content with the target that is there, so that examples read as they do outside.
  string(TOLOWER ${target} lower)
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${lower}-config.cmake "")
  file(WRITE ${CMAKE_FIND_PACKAGE_REDIRECTS_DIR}/${lower}-config-version.cmake "set(PACKAGE_VERSION_COMPATIBLE TRUE)\n")

  set(package ${CMAKE_INSTALL_LIBDIR}/cmake/${target})
  install(TARGETS ${target} EXPORT ${target}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libraries NAMELINK_COMPONENT development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
  install(EXPORT ${target} FILE ${target}Targets.cmake NAMESPACE Orvo:: DESTINATION ${package} COMPONENT development)
  orvo_install_headers(${folder})

  set(ORVO_LIBRARY ${target})
  list(TRANSFORM ARG_NEEDS REPLACE "(.+)" "find_dependency(\\1 ${PROJECT_VERSION})" OUTPUT_VARIABLE needs)
  list(JOIN needs "\n" ORVO_DEPENDENCIES)
  set(made ${CMAKE_CURRENT_BINARY_DIR}/${target})
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/package/Config.cmake.in ${made}Config.cmake
    INSTALL_DESTINATION ${package} PATH_VARS ORVO_PLUGIN_FOLDER ORVO_DATA_FOLDER)
  # Below version 1 what another second number brings may break.
  write_basic_package_version_file(${made}ConfigVersion.cmake COMPATIBILITY SameMinorVersion)
  install(FILES ${made}Config.cmake ${made}ConfigVersion.cmake DESTINATION ${package} COMPONENT development)

  list(TRANSFORM ARG_NEEDS APPEND " >= ${PROJECT_VERSION}" OUTPUT_VARIABLE needs)
  list(JOIN needs ", " ORVO_REQUIRES)
  get_target_property(prefix ${target} PREFIX)
  if(prefix STREQUAL "")
    set(ORVO_LINK "-l:${target}.so")
  else()
    set(ORVO_LINK "-l${target}")
  endif()
  configure_file(${PROJECT_SOURCE_DIR}/cmake/package/library.pc.in ${made}.pc @ONLY)
  install(FILES ${made}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()
