# shellcheck shell=bash

# Classic and netCDF-4 files and the DAP client; no tools, no plug-ins, no other stores.
build_netcdf() {
  unpack_source netcdf || return 1
  read_paths_as_utf8 || return 1
  cross_cmake netcdf \
    -DENABLE_NETCDF_4=ON -DENABLE_DAP=ON -DENABLE_NCZARR=OFF -DENABLE_BYTERANGE=OFF \
    -DENABLE_PLUGINS=OFF -DENABLE_LIBXML2=OFF -DENABLE_DLL=OFF \
    -DBUILD_UTILITIES=OFF -DENABLE_EXAMPLES=OFF -DENABLE_TESTS=OFF -DENABLE_DAP_REMOTE_TESTS=OFF \
    -DENABLE_FILTER_TESTING=OFF \
    -DHDF5_C_LIBRARY="$PREFIX/lib/libhdf5.a" -DHDF5_HL_LIBRARY="$PREFIX/lib/libhdf5_hl.a" \
    -DHDF5_INCLUDE_DIR="$PREFIX/include" -DHAVE_HDF5_H="$PREFIX/include" \
    -DHDF5_VERSION="$(hdf5_version)" \
    -DCURL_NO_CURL_CMAKE=ON -DCURL_LIBRARY="$PREFIX/lib/libcurl.a" \
    -DCURL_INCLUDE_DIR="$PREFIX/include" \
    -DZLIB_INCLUDE_DIR="$PREFIX/include" -DZLIB_LIBRARY="$PREFIX/lib/libz.a" \
    -DCMAKE_C_FLAGS="${TARGET_FLAGS[*]} -DCURL_STATICLIB -I'$PREFIX/include'"
}

hdf5_version() {
  sed -n 's/^#define *H5_VERSION *"\(.*\)"/\1/p' "$PREFIX/include/H5pubconf.h"
}

# The library reads file names on Windows in the machine's code page, in which most names of the
# world cannot be written. Ours are UTF-8; what is no valid UTF-8 (a folder named by the
# environment) is still read as before.
read_paths_as_utf8() {
  local file=$WORK/netcdf/libdispatch/dpathmgr.c
  sed -i '/^ansi2utf8(/,/^}/ {
    s/^    wchar_t\* u16 = NULL;/&\
    const UINT page = path != NULL \&\& MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path,\
        -1, NULL, 0) ? CP_UTF8 : CP_ACP;/
    s/MultiByteToWideChar(acp,/MultiByteToWideChar(page,/
    s/MultiByteToWideChar(CP_ACP,/MultiByteToWideChar(page,/
  }' "$file"
  [ "$(grep -c 'MultiByteToWideChar(page,' "$file")" -eq 2 ] && grep -q 'const UINT page' "$file"
}
