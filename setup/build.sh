# shellcheck shell=bash
# Configuring and building the project's own build folders: build/native, build/asan,
# build/win32, build/win64.

# shellcheck source=setup/prefix.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/prefix.sh"
# shellcheck source=setup/sources.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/sources.sh"
# shellcheck source=deps/build.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/../deps/build.sh"

build_dir() {
  printf '%s/build/%s\n' "$KELVANE_ROOT" "$1"
}

# The options are those of CMakePresets.json.
configure() {
  local architecture
  case $1 in
    win32) architecture=i686 ;;
    win64) architecture=x86_64 ;;
  esac
  if [ -n "${architecture:-}" ]; then
    KELVANE_DEPS=$(deps_prefix "$architecture")
    KELVANE_WIDL_LIB=$(wine_modules)
    export KELVANE_DEPS KELVANE_WIDL_LIB
  fi
  cmake -S "$KELVANE_ROOT" --preset "$1"
}

configure_and_build() {
  local name=$1 options=()
  shift
  [ $# -eq 0 ] || options=(--target "$@")
  configure "$name" && cmake --build "$(build_dir "$name")" --parallel "$(nproc)" "${options[@]}"
}

# build NAME "about N s" [target...] builds the folder NAME (native, asan, fuzz, win32, win64).
build() {
  local name=$1 time=$2 what
  shift 2
  case $name in
    native) what='the native build' ;;
    asan) what='the sanitizer build' ;;
    fuzz) what='the fuzz targets' ;;
    win32) what='the 32-bit Windows build' ;;
    win64) what='the 64-bit Windows build' ;;
  esac
  step "build-$name" "making $what ($time)" configure_and_build "$name" "$@"
}
