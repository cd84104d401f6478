# shellcheck shell=bash

# One file, in the configuration that the native library has too.
build_pugixml() {
  unpack_source pugixml || return 1
  cd -- "$WORK/pugixml/src" || return 1
  "$ARCH-w64-mingw32-g++-posix" -O2 -DNDEBUG "${TARGET_FLAGS[@]}" -c pugixml.cpp &&
    "$ARCH-w64-mingw32-ar" rcs "$PREFIX/lib/libpugixml.a" pugixml.o &&
    cp -- pugixml.hpp pugiconfig.hpp "$PREFIX/include/"
}
