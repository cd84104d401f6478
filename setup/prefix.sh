# shellcheck shell=bash
# Wine prefixes: a prepared one of each kind of Windows (KELVANE_BITS) is kept and copied whenever a
# fresh one is wanted.

# shellcheck source=setup/wine-env.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/wine-env.sh"

prefix_template() {
  local here
  here=$(dirname -- "${BASH_SOURCE[0]}")
  printf '%s/prefix%s-%s\n' "$KELVANE_CACHE" "${KELVANE_BITS:-32}" \
    "$({ cat -- "$here/prefix.sh" "$here/wine-env.sh" && wine_tree; } | recipe_hash)"
}

build_prefix_template() {
  local template=$1
  rm -rf -- "$template"
  mkdir -p -- "$template"
  wine_env "$template"
  kwine 120 wineboot -i || return 1
  # Wine finds the faces of its own font package only here. With them every text has the same
  # extent on every machine, whatever fonts that machine has.
  mkdir -p -- "$template/drive_c/windows/Fonts"
  cp -- "$(wine_tree)"/usr/share/wine/fonts/*.{ttf,fon} "$template/drive_c/windows/Fonts/"
  # Windows without a display: they exist, paint and can be read back.
  kwine 60 reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f || return 1
  # The driver is looked up when the desktop starts, so this server must end here.
  stop_wineserver
  rm -rf -- "$template"/drive_c/users/*/Temp/*
  touch -- "$template/complete"
}

# install_prefix_template BITS makes the prepared prefix unless it is there.
install_prefix_template() {
  local template
  local -x KELVANE_BITS=$1
  template=$(prefix_template)
  [ -e "$template/complete" ] && return 0
  step "prefix$1" "preparing a $1-bit Wine prefix (about 10 s)" build_prefix_template "$template" ||
    { rm -rf -- "$template"; return 1; }
}

# new_prefix DIR makes DIR a fresh prefix with nothing of ours registered, replacing what was there.
# Windows' own modules, a gigabyte that no program of ours writes, are linked where the file system
# allows it; everything else is a copy.
new_prefix() {
  local template
  template=$(prefix_template)
  rm -rf -- "$1"
  mkdir -p -- "$(dirname -- "$1")"
  if cp -al -- "$template" "$1" 2>/dev/null; then
    find "$1" -type f ! -path '*/windows/system32/*.*' ! -path '*/windows/syswow64/*.*' -exec sh -c '
      for file; do
        cp -p -- "$file" "$file.copy" && mv -f -- "$file.copy" "$file" || exit 1
      done' sh {} +
  else
    rm -rf -- "$1"
    cp -a --no-preserve=ownership -- "$template" "$1"
  fi
}
