# shellcheck shell=bash
# The packages that the native build, the cross-compiler and the recipes in deps/ need.

NATIVE_PACKAGES=(
  # Tools of the builds
  build-essential ccache cmake ninja-build pkg-config
  # Libraries of the native build, of the command line and of the tests
  googletest libbenchmark-dev libboost-dev libcairo2-dev libcli11-dev libdeflate-dev libgtest-dev
  libnanoflann-dev libpugixml-dev libudunits2-dev nlohmann-json3-dev
  # What our own netCDF stands on; any of curl's variants will do
  libcurl4-gnutls-dev zlib1g-dev
  # The protocol library of the DAP server that the tests talk to
  libdap-dev
  # The face that pictures are lettered in
  fonts-liberation
  # The Windows build: cross-compilers, type library compiler, unpacking of sources
  dpkg-dev g++-mingw-w64-i686-posix g++-mingw-w64-x86-64-posix mingw-w64-tools patchelf
  xz-utils
  # Real data and its tools, and locales with other decimal separators, for the tests
  ferret-datasets locales netcdf-bin python3 python3-jsonschema
  # Counts instructions, for the tests of what things cost
  valgrind
  # Compilers for samples of other hosts: C#, and Pascal with what makes it one for Windows
  fp-compiler fpc-source libmono-microsoft-csharp4.0-cil libmono-system-drawing4.0-cil
  libmono-system-windows-forms4.0-cil mono-mcs
  # The packages: installers, and pages from Markdown
  msitools python3-markdown wixl
)

# The machine may have another variant of a package, which must not be removed for ours.
other_variant() {
  case $1 in
    libcurl4-gnutls-dev) printf '%s\n' libcurl4-openssl-dev ;;
  esac
}

is_installed() {
  case $(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null) in
    installed*) return 0 ;;
    *) return 1 ;;
  esac
}

# What fuzz/run needs besides: a clang with libFuzzer, and a symbolizer for its reports.
# shellcheck disable=SC2034
FUZZ_PACKAGES=(clang libclang-rt-14-dev llvm)

missing_packages() {
  local package
  for package in "${NATIVE_PACKAGES[@]}"; do
    is_installed "$package" || is_installed "$(other_variant "$package")" ||
      printf '%s\n' "$package"
  done
}

as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    env "$@"
  elif command -v sudo >/dev/null; then
    # Without a terminal nobody can type a password: fail at once instead of waiting.
    if [ -t 2 ]; then sudo env "$@"; else sudo -n env "$@"; fi
  else
    fail "packages are missing ($(missing_packages | xargs)); run this as root or install sudo"
  fi
}

install_packages() {
  local options=(-o DPkg::Lock::Timeout=600)
  # A third-party source that cannot be reached is no reason to stop: what counts is whether the
  # packages can be had, and the installation tells.
  as_root apt-get "${options[@]}" update || true
  # --no-remove: nothing that the machine has may be taken away for our sake.
  as_root DEBIAN_FRONTEND=noninteractive apt-get "${options[@]}" install -y \
    --no-install-recommends --no-remove -- "$@"
}

# Installs what is missing; touches neither network nor package manager when nothing is.
install_native_packages() {
  local missing
  mapfile -t missing < <(missing_packages)
  [ "${#missing[@]}" -eq 0 ] && return 0
  if [ "$(id -u)" -ne 0 ] && [ -t 2 ] && command -v sudo >/dev/null; then
    sudo -v || return 1
  fi
  step native "installing ${#missing[@]} packages (about 30 s)" install_packages "${missing[@]}"
}
