# Debian packages by CPack: orvo, the program; liborvo, the libraries with the plug-in and their data; liborvo-dev, what
# others build on. tools/make-packages makes them, tools/try-packages tries them in a fresh system.
# Why: docs/decisions/module.md
set(ORVO_PACKAGE_REVISION 1 CACHE STRING "What follows the version in the packages' names")
set(ORVO_MAINTAINER "Orvo maintainers <maintainers@orvo.invalid>")
find_program(ORVO_GZIP gzip REQUIRED)

# What each package has in its own folder of documents, besides what it brings anyway.
function(orvo_compressed text out)
  execute_process(COMMAND ${ORVO_GZIP} -9n -c ${text} OUTPUT_FILE ${out} COMMAND_ERROR_IS_FATAL ANY)
endfunction()
configure_file(cmake/debian/changelog.in changelog.Debian @ONLY)
orvo_compressed(${PROJECT_BINARY_DIR}/changelog.Debian ${PROJECT_BINARY_DIR}/changelog.Debian.gz)
orvo_compressed(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_BINARY_DIR}/changelog.gz)
file(READ ${PROJECT_SOURCE_DIR}/cmake/debian/copyright copyright)
file(READ ${PROJECT_SOURCE_DIR}/NOTICES.md notices)
file(WRITE ${PROJECT_BINARY_DIR}/copyright "${copyright}\n${notices}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS CHANGELOG.md NOTICES.md cmake/debian/copyright)

# orvo_package(COMPONENT NAME SECTION): a component as a package.
macro(orvo_package component name section)
  string(TOUPPER ${component} upper)
  set(CPACK_DEBIAN_${upper}_PACKAGE_NAME ${name})
  set(CPACK_DEBIAN_${upper}_PACKAGE_SECTION ${section})
  install(FILES ${PROJECT_BINARY_DIR}/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz ${PROJECT_BINARY_DIR}/changelog.gz
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${name} COMPONENT ${component})
  install(FILES ${PROJECT_SOURCE_DIR}/cmake/debian/${name}.lintian-overrides RENAME ${name}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
endmacro()
orvo_package(program orvo science)
orvo_package(libraries liborvo libs)
orvo_package(development liborvo-dev libdevel)

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL program libraries development)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/debian/CompressManuals.cmake)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE orvo)
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_RELEASE ${ORVO_PACKAGE_REVISION})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${ORVO_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# What the system's libraries are is found in the binaries; the project's own are built together, and stay together.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_PROGRAM_DEPENDS libraries)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS libraries)
# Packages of others that link the libraries work with later ones, as long as the number in the libraries' names holds.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# Drivers for drawing and letters for Chinese are looked for while the program runs: none of its binaries names them.
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_RECOMMENDS "libgl1-mesa-dri")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "fonts-noto-cjk")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "cmake (>= 3.25), pkgconf")

# The linker's cache is renewed by a trigger. CPack would write scripts that call ldconfig; naming some that are not there
# keeps it from that.
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers
  ${PROJECT_BINARY_DIR}/none/postinst ${PROJECT_BINARY_DIR}/none/postrm)

# Each begins with its own summary; the project's would come before that.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "how long the sun reaches each window of a drawing
Reads drawings in DXF, finds their windows, and tells when the sun reaches each
of them on a day, what hides it, and whether that is enough by a sunlight
standard. Areas of ground, roofs and facades are analysed by points.
.
Results are tables, spreadsheets, JSON, pages to hand in, colours and isolines
on the drawing, and films of the shadows. There is a command line and a window,
in Chinese and English, with the places and standards of China.")
set(CPACK_DEBIAN_LIBRARIES_DESCRIPTION "sunlight analysis of drawings (libraries)
The facts that analyses of sunlight share: places, solar terms, the sun of a
day, sunlight standards, faces with their shadows, recordings; and the analysis
itself of windows and areas.
.
This package has the libraries, the module OrvoDataBase.so that hosts open, and
the places, terms, standards and languages.")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "sunlight analysis of drawings (development files)
The facts that analyses of sunlight share: places, solar terms, the sun of a
day, sunlight standards, faces with their shadows, recordings; and the analysis
itself of windows and areas.
.
This package has the headers, files for CMake and pkg-config, and examples of
plug-ins and programs.")

include(CPack)
