# Compilers behind ccache where it is installed (a package of ./test). What it keeps serves every checkout on the
# machine: paths below the checkout count as relative ones, and the folder in which a compiler ran does not count.
# Precompiled headers need the allowances that ccache's manual names for them. Two compilations of one never give the same
# bytes, so a target that has some writes beside them what they stand for (see tests/CMakeLists.txt).
find_program(ORVO_CCACHE ccache)
if(ORVO_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER
    env CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 CCACHE_PCH_EXTSUM=1
    CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
    ${ORVO_CCACHE})
endif()
