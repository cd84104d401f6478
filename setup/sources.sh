# shellcheck shell=bash
# The distribution's own sources of the libraries that are cross-built for Windows.

# shellcheck source=setup/private-apt.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/private-apt.sh"

SOURCE_PACKAGES=(zlib curl hdf5 netcdf pugixml)

# Keyed by the list, so that a library added to it is fetched.
sources_dir() {
  printf '%s/sources-%s-%s\n' "$KELVANE_CACHE" "$(debian_codename)" \
    "$(printf '%s\n' "${SOURCE_PACKAGES[@]}" | recipe_hash)"
}

fetch_sources() {
  local dir=$1 apt=$1.apt
  rm -rf -- "$dir"
  mkdir -p -- "$dir"
  make_private_apt "$apt" "$(dpkg --print-architecture)" deb-src || return 1
  (cd -- "$dir" && private_apt "$apt" source --download-only "${SOURCE_PACKAGES[@]}") || return 1
  rm -rf -- "$apt"
  # The names carry the versions: this list is what the built libraries are keyed by.
  (cd -- "$dir" && sha256sum -- *.dsc >versions)
}

# Fetches the source packages unless they are there; what is there stays, so that a build can be
# repeated without a network.
install_sources() {
  local dir
  dir=$(sources_dir)
  [ -e "$dir/versions" ] && return 0
  step sources "fetching the sources of ${SOURCE_PACKAGES[*]} (about 5 s)" fetch_sources "$dir" ||
    { rm -rf -- "$dir" "$dir.apt"; return 1; }
}
