# shellcheck shell=bash

# The distribution's source is without the Windows makefile, and the library is these files alone.
build_zlib() {
  unpack_source zlib || return 1
  cd -- "$WORK/zlib" || return 1
  "$ARCH-w64-mingw32-gcc-posix" -O2 -DNDEBUG "${TARGET_FLAGS[@]}" -c ./*.c &&
    "$ARCH-w64-mingw32-ar" rcs "$PREFIX/lib/libz.a" ./*.o &&
    cp -- zlib.h zconf.h "$PREFIX/include/"
}
