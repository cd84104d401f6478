# shellcheck shell=bash
# Data sets that other packages of the distribution bring as examples. The packages are unpacked and
# not installed; ferret-datasets, which is installed, has the rest.

# shellcheck source=setup/private-apt.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/private-apt.sh"

REALDATA_PACKAGES=(grads libncarg-data r-cran-stars)

# Keyed by the list and by this recipe.
realdata_dir() {
  printf '%s/realdata-%s-%s\n' "$KELVANE_CACHE" "$(debian_codename)" \
    "$({ printf '%s\n' "${REALDATA_PACKAGES[@]}"; declare -f fetch_realdata; } | recipe_hash)"
}

# One folder a package with its data sets, wherever in the package they are. GrADS' example is a
# binary file with a description, which the tests make a data set of.
fetch_realdata() {
  local dir=$1 apt=$1.apt package file folder
  rm -rf -- "$dir"
  mkdir -p -- "$dir/packages"
  make_private_apt "$apt" "$(dpkg --print-architecture)" deb || return 1
  (cd -- "$dir/packages" && private_apt "$apt" download "${REALDATA_PACKAGES[@]}") || return 1
  for package in "${REALDATA_PACKAGES[@]}"; do
    mkdir -- "$dir/$package"
    dpkg-deb -x "$dir/packages/${package}"_*.deb "$dir/packages/$package" || return 1
    # Two of a package have the same name: the folder tells them apart.
    while IFS= read -r file; do
      folder=$(basename -- "$(dirname -- "$file")")
      mkdir -p -- "$dir/$package/$folder" && cp -- "$file" "$dir/$package/$folder/" || return 1
    done < <(find "$dir/packages/$package" -type f \
      \( -name '*.nc' -o -name '*.cdf' -o -name 'model.ctl' -o -name 'model.dat' \))
  done
  rm -rf -- "$apt" "$dir/packages"
  find "$dir" -type f -printf '%P\n' | LC_ALL=C sort >"$dir/complete"
}

# Fetches the data sets unless they are there.
install_realdata() {
  local dir
  dir=$(realdata_dir)
  [ -e "$dir/complete" ] && return 0
  step realdata "fetching data sets of ${REALDATA_PACKAGES[*]} (about 5 s)" \
    fetch_realdata "$dir" || { rm -rf -- "$dir" "$dir.apt"; return 1; }
}
