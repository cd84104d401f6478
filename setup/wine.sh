# shellcheck shell=bash
# A Wine for 32-bit and 64-bit programs in a folder of its own. Installing the 32-bit half beside
# the machine's packages would need a second architecture there, and the two architectures' versions
# get in each other's way; unpacked apart, with its own C libraries, it disturbs nothing and needs
# no root.

# shellcheck source=setup/private-apt.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/private-apt.sh"

WINE_PACKAGES_I386=(wine32 fonts-wine)
WINE_PACKAGES_AMD64=(wine64)

wine_tree() {
  local here
  here=$(dirname -- "${BASH_SOURCE[0]}")
  printf '%s/wine-%s-%s\n' "$KELVANE_CACHE" "$(debian_codename)" \
    "$(cat -- "$here/wine.sh" "$here/private-apt.sh" | recipe_hash)"
}

# wine_program 32|64: the loader for prefixes of that bitness. The 64-bit one starts 32-bit programs
# through the other by itself.
wine_program() {
  local name=wine
  [ "$1" = 32 ] || name=wine64
  printf '%s/usr/lib/wine/%s\n' "$(wine_tree)" "$name"
}

# One server for both bitnesses.
wine_server() {
  printf '%s/usr/lib/wine/wineserver64\n' "$(wine_tree)"
}

# Wine's own modules for Windows, among them stdole2.tlb, which widl imports.
wine_modules() {
  printf '%s/usr/lib/i386-linux-gnu/wine/i386-windows\n' "$(wine_tree)"
}

have_wine() {
  [ -e "$(wine_tree)/complete" ]
}

# unpack_wine ARCHITECTURE packages... adds them, with all that they need, to the folder TREE.
unpack_wine() {
  local architecture=$1 apt=$TREE.apt deb
  shift
  make_private_apt "$apt" "$architecture" deb || return 1
  private_apt "$apt" install -y --download-only "$@" || return 1
  for deb in "$apt"/archives/*.deb; do
    dpkg-deb -x "$deb" "$TREE" || return 1
  done
  rm -rf -- "$apt"
}

# Wine knows its built-in modules by a mark of 32 bytes behind the DOS header; the package makes
# this one from another package's file when it is installed.
# mark_builtin_zlib MINGW-TRIPLET FOLDER
mark_builtin_zlib() {
  local module=$TREE/usr/lib/$2/zlib1.dll
  cp -- "$TREE/usr/$1/lib/zlib1.dll" "$module" &&
    { printf 'Wine builtin DLL' && head -c 16 /dev/zero; } |
    dd of="$module" bs=1 seek=64 conv=notrunc status=none
}

# use_own_libraries TRIPLET C-LOADER programs...
# The wrapper scripts have the paths of an ordinary installation; the programs behind them start as
# they are once they find this folder's loader and libraries.
use_own_libraries() {
  local triplet=$1 loader=$2 program
  shift 2
  for program in "$@"; do
    patchelf --set-interpreter "$TREE/lib/$triplet/$loader" --force-rpath \
      --set-rpath "$TREE/lib/$triplet:$TREE/usr/lib/$triplet" "$TREE/usr/lib/wine/$program" ||
      return 1
  done
}

build_wine_tree() {
  local TREE=$1
  rm -rf -- "$TREE"
  mkdir -p -- "$TREE"
  # The rarer half first: when it cannot be had, nothing else is fetched.
  unpack_wine i386 "${WINE_PACKAGES_I386[@]}" || return 1
  unpack_wine amd64 "${WINE_PACKAGES_AMD64[@]}" || return 1
  mark_builtin_zlib i686-w64-mingw32 i386-linux-gnu/wine/i386-windows || return 1
  mark_builtin_zlib x86_64-w64-mingw32 x86_64-linux-gnu/wine/x86_64-windows || return 1
  ln -sf wineserver64 "$TREE/usr/lib/wine/wineserver"
  use_own_libraries i386-linux-gnu ld-linux.so.2 wine wineserver32 || return 1
  use_own_libraries x86_64-linux-gnu ld-linux-x86-64.so.2 wine64 wineserver64 || return 1
  # Also tells whether this kernel runs 32-bit programs at all.
  "$TREE/usr/lib/wine/wine" --version && "$TREE/usr/lib/wine/wine64" --version || return 1
  touch -- "$TREE/complete"
}

# Makes that Wine unless it is there. Fails when none can be had on this machine.
install_wine_tree() {
  local tree
  have_wine && return 0
  tree=$(wine_tree)
  [ "$(uname -m)" = x86_64 ] ||
    { fail "a Wine for 32-bit and 64-bit programs does not run on $(uname -m)"; return 1; }
  # The caller says what it means to do without; that is one line, not a page.
  STEP_TAIL=1 step wine "fetching a Wine into its own folder (about 25 s)" \
    build_wine_tree "$tree" || { rm -rf -- "$tree" "$tree.apt"; return 1; }
}
