# shellcheck shell=bash
# Builds netCDF and HDF5 from the distribution's source packages as static libraries, with the
# patches in patches/, so that one library reads data sets everywhere; for Windows also what they
# stand on (zlib, curl) and pugixml. Source it after setup/common.sh; it needs setup/sources.sh and
# setup/prefix.sh.

DEPS_DIR=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd -P)

# shellcheck source=deps/zlib.sh
. "$DEPS_DIR/zlib.sh"
# shellcheck source=deps/curl.sh
. "$DEPS_DIR/curl.sh"
# shellcheck source=deps/hdf5.sh
. "$DEPS_DIR/hdf5.sh"
# shellcheck source=deps/netcdf.sh
. "$DEPS_DIR/netcdf.sh"
# shellcheck source=deps/pugixml.sh
. "$DEPS_DIR/pugixml.sh"

# ARCH, here and below, is i686 or x86_64 for the Windows of that processor, or native for the
# machine that builds.

deps_toolchain() {
  printf '%s/cmake/mingw-%s.cmake\n' "$KELVANE_ROOT" "$1"
}

# deps_prefix ARCH is where the headers and libraries for ARCH are, or will be once install_deps has
# run: keyed by recipes, patches, source versions and compiler.
deps_prefix() {
  local arch=$1
  printf '%s/deps-%s-%s\n' "$KELVANE_CACHE" "$arch" "$({
    cat -- "$DEPS_DIR"/*.sh "$DEPS_DIR"/*.in "$DEPS_DIR"/patches/*/*.patch \
      "$(sources_dir)/versions"
    if [ "$arch" = native ]; then
      c++ --version
    else
      cat -- "$DEPS_DIR/run-hdf5-probe" "$KELVANE_ROOT/cmake/mingw.cmake" "$(deps_toolchain "$arch")"
      "$arch-w64-mingw32-g++-posix" --version
    fi
  } | recipe_hash)"
}

# The functions below and the recipes take ARCH, TARGET_FLAGS (what every compilation for it gets),
# PREFIX (where to install) and WORK (where to build) from install_deps.

# unpack_source NAME unpacks the source package, patched as the distribution does and then as we do,
# to WORK/NAME. A patch must fit to the letter.
# The package's own date stands for the time of the build from then on, so that every machine makes
# the same libraries.
unpack_source() {
  local patch
  rm -rf -- "${WORK:?}/$1"
  dpkg-source --no-check -x "$(sources_dir)/$1"_*.dsc "$WORK/$1" || return 1
  for patch in "$DEPS_DIR/patches/$1"/*.patch; do
    [ -e "$patch" ] || continue
    printf '%s\n' "${patch##*/}"
    patch -d "$WORK/$1" -p1 --fuzz=0 --no-backup-if-mismatch <"$patch" || return 1
  done
  SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l "$WORK/$1/debian/changelog" -S Timestamp) || return 1
  export SOURCE_DATE_EPOCH
}

# cmake_build NAME options... configures WORK/NAME for ARCH in WORK/NAME-build, builds and installs
# it. Runs inside the build folder, because a probe of HDF5 leaves its answer in the current one.
# The names of source files that get into the libraries are those below WORK.
cmake_build() {
  local name=$1 platform=(-DCMAKE_POSITION_INDEPENDENT_CODE=ON)
  shift
  [ "$ARCH" = native ] ||
    platform=(-DCMAKE_TOOLCHAIN_FILE="$(deps_toolchain "$ARCH")" -DKELVANE_DEPS="$PREFIX")
  mkdir -p -- "$WORK/$name-build"
  cd -- "$WORK/$name-build" || return 1
  cmake -G Ninja -Wno-dev "$WORK/$name" "${platform[@]}" \
    -DCMAKE_C_COMPILER_LAUNCHER=ccache \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS_RELEASE="-O2 -DNDEBUG '-ffile-prefix-map=$WORK/='" \
    -DCMAKE_INSTALL_PREFIX="$PREFIX" -DCMAKE_INSTALL_LIBDIR=lib \
    -DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF \
    -DBUILD_SHARED_LIBS=OFF -DBUILD_TESTING=OFF "$@" &&
    cmake --build . && cmake --install .
}

# The cross-compiler must not see the machine's /usr/include, only the headers of Boost in it.
link_boost() {
  ln -sfn /usr/include/boost "$PREFIX/include/boost"
}

build_native_deps() {
  step deps-native-hdf5 "building HDF5 (about 40 s)" build_hdf5 &&
    step deps-native-netcdf "building netCDF (about 15 s)" build_netcdf
}

build_windows_deps() {
  step "deps-$ARCH-zlib" "building zlib for $KELVANE_BITS-bit Windows (about 3 s)" build_zlib &&
    step "deps-$ARCH-curl" "building curl for $KELVANE_BITS-bit Windows (about 35 s)" build_curl &&
    step "deps-$ARCH-hdf5" "building HDF5 for $KELVANE_BITS-bit Windows (about 50 s)" build_hdf5 &&
    step "deps-$ARCH-netcdf" "building netCDF for $KELVANE_BITS-bit Windows (about 25 s)" build_netcdf &&
    step "deps-$ARCH-pugixml" "building pugixml for $KELVANE_BITS-bit Windows (about 5 s)" build_pugixml &&
    link_boost
}

# build_deps builds them all, one after the other.
build_deps() {
  if [ "$ARCH" = native ]; then build_native_deps; else build_windows_deps; fi || return 1
  cp -- "$DEPS_DIR/kelvane-deps.cmake.in" "$PREFIX/kelvane-deps.cmake" &&
    touch -- "$PREFIX/complete"
}

# install_deps ARCH builds the libraries for ARCH unless they are there.
install_deps() {
  local ARCH=$1 TARGET_FLAGS=() PREFIX WORK status=0
  local -x KELVANE_BITS=64
  if [ "$ARCH" = i686 ]; then
    KELVANE_BITS=32
    # The toolchain file says why.
    TARGET_FLAGS=(-msse2 -mfpmath=sse -mstackrealign)
  fi
  PREFIX=$(deps_prefix "$ARCH")
  [ -e "$PREFIX/complete" ] && return 0
  # The same folder for every recipe: with the compiler cache only what a new patch touches is
  # compiled again.
  WORK=$KELVANE_CACHE/deps-$ARCH.work
  rm -rf -- "$PREFIX" "$WORK"
  mkdir -p -- "$PREFIX/include" "$PREFIX/lib" "$WORK"
  build_deps || status=$?
  rm -rf -- "$WORK"
  return "$status"
}
