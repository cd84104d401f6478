# shellcheck shell=bash

# A client for HTTP alone, with Windows' own TLS and certificates.
build_curl() {
  unpack_source curl || return 1
  cmake_build curl \
    -DBUILD_CURL_EXE=OFF -DENABLE_MANUAL=OFF -DHTTP_ONLY=ON \
    -DCURL_USE_SCHANNEL=ON -DCURL_USE_LIBSSH2=OFF -DUSE_LIBIDN2=OFF -DCURL_USE_LIBPSL=OFF \
    -DUSE_NGHTTP2=OFF -DCURL_ZLIB=OFF -DCURL_BROTLI=OFF -DCURL_ZSTD=OFF
}
