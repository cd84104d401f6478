# shellcheck shell=bash
# A 32-bit Wine in a folder of its own. Installing it beside the machine's packages would need a
# second architecture there, and the two architectures' versions get in each other's way; unpacked
# apart, with its own C library, it disturbs nothing and needs no root.

# shellcheck source=setup/private-apt.sh
. "$(dirname -- "${BASH_SOURCE[0]}")/private-apt.sh"

WINE_PACKAGES=(wine32 fonts-wine)

wine_tree() {
  local here
  here=$(dirname -- "${BASH_SOURCE[0]}")
  printf '%s/wine32-%s-%s\n' "$KELVANE_CACHE" "$(debian_codename)" \
    "$(cat -- "$here/wine32.sh" "$here/private-apt.sh" | recipe_hash)"
}

wine_program() {
  printf '%s/usr/lib/wine/wine\n' "$(wine_tree)"
}

wine_server() {
  printf '%s/usr/lib/wine/wineserver32\n' "$(wine_tree)"
}

# Wine's own modules for Windows, among them stdole2.tlb, which widl imports.
wine_modules() {
  printf '%s/usr/lib/i386-linux-gnu/wine/i386-windows\n' "$(wine_tree)"
}

have_wine() {
  [ -e "$(wine_tree)/complete" ]
}

# Wine knows its built-in modules by a mark of 32 bytes behind the DOS header; the package makes
# this one from another package's file when it is installed.
mark_builtin_zlib() {
  local tree=$1 module=$1/usr/lib/i386-linux-gnu/wine/i386-windows/zlib1.dll
  cp -- "$tree/usr/i686-w64-mingw32/lib/zlib1.dll" "$module" &&
    { printf 'Wine builtin DLL' && head -c 16 /dev/zero; } |
    dd of="$module" bs=1 seek=64 conv=notrunc status=none
}

build_wine_tree() {
  local tree=$1 apt=$1.apt deb libraries
  make_private_apt "$apt" i386 deb || return 1
  private_apt "$apt" install -y --download-only "${WINE_PACKAGES[@]}" || return 1
  rm -rf -- "$tree"
  mkdir -p -- "$tree"
  for deb in "$apt"/archives/*.deb; do
    dpkg-deb -x "$deb" "$tree" || return 1
  done
  rm -rf -- "$apt"
  mark_builtin_zlib "$tree" || return 1
  # The wrapper scripts have the paths of an ordinary installation; the programs behind them start
  # as they are once they find this folder's loader and libraries.
  ln -sf wineserver32 "$tree/usr/lib/wine/wineserver"
  libraries=$tree/lib/i386-linux-gnu:$tree/usr/lib/i386-linux-gnu
  local program
  for program in wine wineserver32; do
    patchelf --set-interpreter "$tree/lib/i386-linux-gnu/ld-linux.so.2" \
      --force-rpath --set-rpath "$libraries" "$tree/usr/lib/wine/$program" || return 1
  done
  # Also tells whether this kernel runs 32-bit programs at all.
  "$tree/usr/lib/wine/wine" --version || return 1
  touch -- "$tree/complete"
}

# Makes the 32-bit Wine unless it is there. Fails when none can be had on this machine.
install_wine_tree() {
  local tree
  have_wine && return 0
  tree=$(wine_tree)
  case $(uname -m) in
    x86_64 | i?86) ;;
    *) fail "a 32-bit Wine does not run on $(uname -m)"; return 1 ;;
  esac
  # The caller says what it means to do without; that is one line, not a page.
  STEP_TAIL=1 step wine32 "fetching a 32-bit Wine into its own folder (about 15 s)" \
    build_wine_tree "$tree" || { rm -rf -- "$tree" "$tree.apt"; return 1; }
}
