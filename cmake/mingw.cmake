# Cross-building for Windows with the distribution's mingw-w64: what both bitnesses share. The
# toolchain file that includes it has set KELVANE_TRIPLET.
set(CMAKE_SYSTEM_NAME Windows)

# The posix variants: the standard library's threads and locks exist only there.
set(CMAKE_C_COMPILER ${KELVANE_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${KELVANE_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${KELVANE_TRIPLET}-windres)
set(CMAKE_AR ${KELVANE_TRIPLET}-ar CACHE FILEPATH "")
set(CMAKE_RANLIB ${KELVANE_TRIPLET}-ranlib CACHE FILEPATH "")

# Modules need nothing beside them but Windows' own libraries.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static")
set(CMAKE_MODULE_LINKER_FLAGS_INIT "-static")

# KELVANE_DEPS: where the cross-built libraries are.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KELVANE_DEPS)
set(CMAKE_FIND_ROOT_PATH /usr/${KELVANE_TRIPLET} ${KELVANE_DEPS})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# The type library compiler. It gets -L ${KELVANE_WIDL_LIB} to find stdole2.tlb.
find_program(KELVANE_WIDL NAMES ${KELVANE_TRIPLET}-widl widl)
