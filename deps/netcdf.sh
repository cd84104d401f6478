# shellcheck shell=bash

# Classic and netCDF-4 files and the client of DAP 2; no tools, no plug-ins, no other stores.
build_netcdf() {
  local libraries=()
  unpack_source netcdf || return 1
  if [ "$ARCH" != native ]; then
    libraries=(-DCURL_NO_CURL_CMAKE=ON -DCURL_LIBRARY="$PREFIX/lib/libcurl.a"
      -DCURL_INCLUDE_DIR="$PREFIX/include"
      -DZLIB_INCLUDE_DIR="$PREFIX/include" -DZLIB_LIBRARY="$PREFIX/lib/libz.a")
    TARGET_FLAGS+=(-DCURL_STATICLIB)
  fi
  cmake_build netcdf \
    -DENABLE_NETCDF_4=ON -DENABLE_DAP=ON -DENABLE_DAP4=OFF -DENABLE_NCZARR=OFF -DENABLE_BYTERANGE=OFF \
    -DENABLE_PLUGINS=OFF -DENABLE_LIBXML2=OFF -DENABLE_DLL=OFF \
    -DBUILD_UTILITIES=OFF -DENABLE_EXAMPLES=OFF -DENABLE_TESTS=OFF -DENABLE_DAP_REMOTE_TESTS=OFF \
    -DENABLE_FILTER_TESTING=OFF \
    -DHDF5_C_LIBRARY="$PREFIX/lib/libhdf5.a" -DHDF5_HL_LIBRARY="$PREFIX/lib/libhdf5_hl.a" \
    -DHDF5_INCLUDE_DIR="$PREFIX/include" -DHAVE_HDF5_H="$PREFIX/include" \
    -DHDF5_VERSION="$(hdf5_version)" "${libraries[@]}" \
    -DCMAKE_C_FLAGS="${TARGET_FLAGS[*]} -I'$PREFIX/include'"
}

hdf5_version() {
  sed -n 's/^#define *H5_VERSION *"\(.*\)"/\1/p' "$PREFIX/include/H5pubconf.h"
}
