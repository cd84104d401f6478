# shellcheck shell=bash

# The library alone, with deflate. See run-hdf5-probe for what its configuration wants to run; the
# H5_ answers are the ones that the probes give on Windows.
build_hdf5() {
  local status=0 platform=()
  unpack_source hdf5 || return 1
  if [ "$ARCH" != native ]; then
    # Included on every system whose compiler has unistd.h, and used nowhere in the library.
    sed -i 's|^#include <sys/wait.h>||' "$WORK/hdf5/src/H5private.h"
    export KELVANE_PROBE_PREFIX=$WORK/prefix
    new_prefix "$KELVANE_PROBE_PREFIX"
    platform=(-DCMAKE_CROSSCOMPILING_EMULATOR="$DEPS_DIR/run-hdf5-probe"
      -DH5_LDOUBLE_TO_LONG_SPECIAL= -DH5_LONG_TO_LDOUBLE_SPECIAL=
      -DH5_LDOUBLE_TO_LLONG_ACCURATE=1 -DH5_LLONG_TO_LDOUBLE_CORRECT=1
      -DH5_DISABLE_SOME_LDOUBLE_CONV= -DH5_NO_ALIGNMENT_RESTRICTIONS=
      -DZLIB_INCLUDE_DIR="$PREFIX/include" -DZLIB_LIBRARY="$PREFIX/lib/libz.a")
  fi
  cmake_build hdf5 "${platform[@]}" \
    -DHDF5_BUILD_TOOLS=OFF -DHDF5_BUILD_EXAMPLES=OFF -DHDF5_BUILD_CPP_LIB=OFF \
    -DHDF5_BUILD_FORTRAN=OFF -DHDF5_BUILD_JAVA=OFF -DHDF5_BUILD_HL_LIB=ON \
    -DHDF5_ENABLE_SZIP_SUPPORT=OFF -DHDF5_ENABLE_Z_LIB_SUPPORT=ON \
    -DHDF5_INSTALL_LIB_DIR=lib -DHDF5_INSTALL_CMAKE_DIR=lib/cmake || status=$?
  [ "$ARCH" = native ] && return "$status"
  wine_env "$KELVANE_PROBE_PREFIX"
  stop_wineserver
  return "$status"
}
